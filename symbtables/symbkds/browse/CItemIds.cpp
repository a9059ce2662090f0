#include "symbkds/browse/CItemIds.h"

#include "platform/mfc/Conversion.h"
#include "platform/win32/CodePage.h"
#include "symbkds/model/WideToUtf8.h"

#include <algorithm>

CItemIds CItemIds::Joined(LPCWSTR parentId, LPCSTR separator)
{
    CItemIds made;
    made.head = Widen((WideToUtf8(parentId) + separator).View(), CP_THREAD_ACP);
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
    made.head = Widen((WideToUtf8(parentId) + entryHead.Mid(repeated, 1)).View(), CP_THREAD_ACP);
    made.repeatedUnits =
        Widen(entryHead.View().substr(0, static_cast<std::size_t>(repeated) + 1), CP_THREAD_ACP).size();
    return made;
}

TaskText CItemIds::BuildItemId(const TaskText& entry) const
{
    return MakeTaskText(head, entry.View().substr(std::min(repeatedUnits, entry.units)));
}
