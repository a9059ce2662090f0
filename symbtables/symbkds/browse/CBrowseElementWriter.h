#pragma once

#include "platform/mfc/CArray.h"
#include "platform/mfc/CString.h"
#include "symb/BrowseElement.h"
#include "symbkds/browse/CItemIds.h"
#include "symbkds/browse/CListingPage.h"

#include <cstdint>

// Where a host wants its elements: the variables it passed in, which it owns.
struct HostElements
{
    DWORD maxElements;         // 0: no limit
    LPWSTR* continuationPoint; // may be null
    DWORD* moreElements;
    DWORD* elementCount;
    BrowseElement** elements;
    DWORD* elementCapacity;
};

// Fills a host's array of browse elements.
//
// Elements and texts come from the task allocator. An element counts once it is
// complete; when an allocation fails, everything the host holds is valid.
class CBrowseElementWriter
{
public:
    // `identifiers` makes the item identifiers of what is listed.
    CBrowseElementWriter(const HostElements& hostElements, CItemIds identifiers);

    // Where the host wants the listing to resume; empty: at the first entry.
    const CString& GetResumeAt() const { return resumeAt; }
    // What a listing must collect for the host: with a limit, one entry more than fits, which tells where the next page
    // begins.
    CListingPage GetPage() const;

    // Makes room for `candidates` more elements if there is no limit. False: out of memory.
    bool EnsureElementCapacity(std::uint32_t candidates);
    // Adds an element. True when the listing must stop: the limit is reached, or memory is short.
    bool AddBrowseElement(const CString& entry, DWORD kind);
    // Adds the collected entries.
    void FillBrowseElements(const CStringArray& entries, const CWordArray& kinds);

    // S_OK, or E_OUTOFMEMORY once an allocation has failed.
    HRESULT GetResult() const { return result; }

private:
    bool HasLimit() const { return host.maxElements != 0; }
    bool CutListing(const CString& entry);

    HostElements host;
    CItemIds itemIds;
    CString resumeAt;
    std::uint32_t targetIndex; // where the next element goes
    HRESULT result = S_OK;
};
