#include "symbkds/browse/CItemIds.h"

#include "platform/win32/CodePage.h"
#include "symbkds/model/WideToUtf8.h"

#include <algorithm>

namespace {

// UTF-16 of a text that is not empty.
std::basic_string<WCHAR> Widen(const CString& text)
{
    const int bytes = text.GetLength();
    std::basic_string<WCHAR> wide(static_cast<std::size_t>(bytes), 0);
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_THREAD_ACP, 0, text, bytes, wide.data(), bytes)));
    return wide;
}

} // namespace

CItemIds CItemIds::Joined(LPCWSTR parentId, LPCSTR separator)
{
    CItemIds made;
    made.head = Widen(WideToUtf8(parentId) + separator);
    return made;
}

CItemIds CItemIds::OfElements(LPCWSTR parentId, const CString& path, const CString& prefix)
{
    const CString component = path.Mid(path.ReverseFind('.') + 1);
    if (component.IsEmpty())
        return OfMembers(parentId);
    const CString entryHead = prefix + "["; // every element's entry begins with it
    const bool repeatsComponent =
        component.GetLength() < entryHead.GetLength() && entryHead.View().starts_with(component.View());
    const int repeated = repeatsComponent ? component.GetLength() : prefix.GetLength();
    CItemIds made;
    made.head = Widen(WideToUtf8(parentId) + entryHead.Mid(repeated, 1));
    made.repeatedUnits = Widen(entryHead.Left(repeated + 1)).size();
    return made;
}

TaskText CItemIds::BuildItemId(const TaskText& entry) const
{
    return MakeTaskText(head, entry.View().substr(std::min(repeatedUnits, entry.units)));
}
