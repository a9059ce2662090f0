#pragma once

#include "symb/CSymb.h"
#include "symbhost/Text.h"

#include <string>
#include <unordered_set>
#include <vector>

// The plug-in lists no more elements of an array than these.
constexpr DWORD kListedElements = 1'048'576;

// What a listing asks for. Texts are UTF-8.
struct ListingRequest
{
    std::string path; // empty: the variables
    std::string pattern = "*";
    std::string filter;
    WORD varType = 0;
    bool wantLeaves = true;
    bool wantBranches = true;
    DWORD pageSize = 1000;    // entries; 0: all in one page
    std::string startAt = {}; // the entry to begin with; empty: the first
};

struct ListingEntry
{
    std::string name;
    std::string symbol; // what the entry is called in lookups and further listings
    bool isBranch;
    bool isElement; // of an array
};

// Whether the array `path`, all of whose listed elements were seen, has more: then the listing was cut by the
// plug-in's limit.
bool HasUnlistedElements(CSymb& table, const std::string& path);

// Tells that it was.
std::string LimitText();

// Why a browse operation answered `result`; empty for a success.
std::string BrowseFailure(HRESULT result);

// The symbols below a path, page by page through the listing with properties.
//
// One page is in memory at a time. A page resumes at the name that did not fit
// into the one before; where two entries have one name, that leads back, so the
// listing ends with a failure when a name comes up for the second time.
class CListing
{
public:
    CListing(CSymb& source, ListingRequest wanted);

    // Replaces `page` by the next one; false at the end and after a failure. Passes CMemoryException on.
    bool NextPage(std::vector<ListingEntry>& page);
    // Whether another page is expected.
    bool HasMore() const { return more; }
    // The name at which the next page starts; empty for the first one.
    const std::string& ResumeAt() const { return resumeAt; }
    // Why the listing is not complete; empty when it is, as far as it was read.
    const std::string& Failure() const { return failure; }

private:
    // Whether the listing may have ended at the plug-in's limit.
    bool MayBeCut() const;
    // Ends the listing; false.
    bool Fail(const std::string& reason);
    ListingEntry EntryOf(const BrowseElement& element) const;

    CSymb& table;
    ListingRequest request;
    bool more = true;
    std::size_t listed = 0; // entries so far
    std::string resumeAt;
    std::unordered_set<std::string> resumed; // every name so far
    std::string failure;
};
