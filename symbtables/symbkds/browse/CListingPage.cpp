#include "symbkds/browse/CListingPage.h"

#include "symbkds/model/WideToUtf8.h"

#include <algorithm>

namespace {

// An entry that is cut keeps at least so many bytes, as a character has four at the most.
constexpr int kLeastCutBytes = kMaxUtf8Bytes - 3;

// An entry as it comes back from a host: cut to the whole characters that fit.
CString AsContinuationPoint(const CString& entry)
{
    int end = std::min(entry.GetLength(), kMaxUtf8Bytes);
    while (end > 0 && end < entry.GetLength() && (entry.GetAt(end) & 0xC0) == 0x80)
        --end;
    return entry.Left(end);
}

} // namespace

bool CListingPage::MayResumeAtEntry(const CString& name, std::string_view fieldCodes, const CString& comment) const
{
    std::string_view rest = resumeAt.View();
    if (!rest.starts_with(name.View()))
        return false;
    rest.remove_prefix(name.View().size());
    for (const char code : fieldCodes) {
        if (rest.empty())
            return true; // cut here
        if (rest.front() != '|')
            return false;
        rest.remove_prefix(1);
        if (code == 'A') {
            const bool isWhole = resumeAt.GetLength() < kLeastCutBytes;
            return !isWhole || fieldCodes.back() != 'C' || rest.ends_with(comment.View());
        }
        if (code == 'C') {
            const std::string_view expected = comment.View().substr(0, rest.size());
            if (!rest.starts_with(expected))
                return false;
            rest.remove_prefix(expected.size());
        }
    }
    return rest.empty();
}

bool CListingPage::ResumesAt(const CString& entry) const
{
    return AsContinuationPoint(entry) == resumeAt;
}

bool CListingPage::ResumesButForFieldCase(const CString& entry) const
{
    const CString point = AsContinuationPoint(entry);
    const int nameEnd = point.Find('|');
    return nameEnd >= 0 && point.CompareNoCase(resumeAt) == 0 && point.Left(nameEnd) == resumeAt.Left(nameEnd);
}

bool CListingPage::Take(const CString& entry)
{
    if (IsFull())
        return false;
    textBytesLeft -= entry.GetLength() + bytesBeside;
    if (textBytesLeft < 0)
        entriesLeft = 0;
    else
        --entriesLeft;
    return textBytesLeft >= 0;
}
