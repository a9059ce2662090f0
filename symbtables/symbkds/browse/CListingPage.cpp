#include "symbkds/browse/CListingPage.h"

#include "symbkds/model/WideToUtf8.h"

#include <algorithm>

namespace {

// An entry as it comes back from a host: cut to the whole characters that fit.
CString AsContinuationPoint(const CString& entry)
{
    int end = std::min(entry.GetLength(), kMaxUtf8Bytes);
    while (end > 0 && end < entry.GetLength() && (entry.GetAt(end) & 0xC0) == 0x80)
        --end;
    return entry.Left(end);
}

} // namespace

bool CListingPage::MayResumeAtName(const CString& name) const
{
    const std::string_view wanted = resumeAt.View();
    const std::size_t length = name.View().size();
    return wanted.starts_with(name.View()) && (wanted.size() == length || wanted[length] == '|');
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
