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

CItemIds::CItemIds(LPCSTR path, LPCWSTR parentId)
{
    const CString parent = WideToUtf8(parentId);
    const CString pathText = path;
    if (pathText.IsEmpty()) {
        ofOthers = Widen(parent + "!");
        return;
    }
    elementPrefix = pathText.Mid(pathText.ReverseFind('.') + 1) + "[";
    elementPrefixUnits = Widen(elementPrefix).size();
    ofElements = Widen(parent + "[");
    ofOthers = Widen(parent + ".");
}

TaskText CItemIds::Make(std::string_view entry, const TaskText& wideEntry) const
{
    if (!elementPrefix.IsEmpty() && entry.starts_with(elementPrefix.View()))
        return MakeTaskText(ofElements, wideEntry.View().substr(std::min(elementPrefixUnits, wideEntry.units)));
    return MakeTaskText(ofOthers, wideEntry.View());
}
