#pragma once

#include "platform/mfc/CString.h"

#include <cstdint>
#include <limits>
#include <string_view>

// Where a listing begins and where it ends.
//
// It begins with its first entry or resumes at the one that a continuation point names: an entry, fields and all, cut
// to what a host gives back. It ends after so many entries, and before the texts of its entries, in bytes of their
// narrow form, grow beyond kMostTextBytes; with records the parent's part of each item identifier counts too.
class CListingPage
{
public:
    // A path may be long and an array may have a million elements: together they must not take all memory.
    static constexpr std::int64_t kMostTextBytes = std::int64_t{128} << 20;

    // Everything.
    CListingPage() = default;
    // From the named entry on (empty: the first), so many entries at the most, for each of which the host gets so many
    // bytes beside its text.
    CListingPage(const CString& continuationPoint, std::uint64_t mostEntries, std::size_t bytesBesideEntry = 0)
        : resumeAt(continuationPoint), entriesLeft(mostEntries),
          bytesBeside(static_cast<std::int64_t>(bytesBesideEntry))
    {}

    // Empty: the listing begins with its first entry.
    const CString& ResumeAt() const { return resumeAt; }
    // Whether the entry of this name and comment can be the one to resume at. Tells most others apart without their
    // texts; addresses are not looked at.
    bool MayResumeAtEntry(const CString& name, std::string_view fieldCodes, const CString& comment) const;
    bool ResumesAt(const CString& entry) const;
    // Whether the entry and the one to resume at differ in nothing but the case of their fields: listing the first
    // page makes the type names that fields show upper case.
    bool ResumesButForFieldCase(const CString& entry) const;

    bool IsFull() const { return entriesLeft == 0; }
    // Counts an entry that is to be listed. False: the listing ends before it.
    bool Take(const CString& entry);

private:
    CString resumeAt;
    std::uint64_t entriesLeft = std::numeric_limits<std::uint64_t>::max();
    std::int64_t textBytesLeft = kMostTextBytes;
    std::int64_t bytesBeside = 0;
};
