#include "symbkds/browse/EntryText.h"

#include "platform/mfc/Exceptions.h"

#include <algorithm>
#include <climits>

CString MakeEntryText(const CString& name, std::string_view fieldCodes, const CString& comment, const CString& address)
{
    if (fieldCodes.empty())
        return name;
    const auto textOf = [&](char code) -> std::string_view {
        return code == 'A' ? address.View() : code == 'C' ? comment.View() : std::string_view();
    };
    std::uint64_t bytes = name.View().size() + fieldCodes.size();
    for (const char code : fieldCodes)
        bytes += textOf(code).size();
    if (bytes >= INT_MAX)
        AfxThrowMemoryException();
    CString entry;
    char* at = std::ranges::copy(name.View(), entry.GetBuffer(static_cast<int>(bytes))).out;
    for (const char code : fieldCodes) {
        *at++ = '|';
        at = std::ranges::copy(textOf(code), at).out;
    }
    entry.ReleaseBuffer(static_cast<int>(bytes));
    return entry;
}

CString MakeUnlocatedField(const CString& typeName, std::uint32_t block, std::uint32_t offset,
                           const CString& addressText)
{
    CString text;
    text.Format("U-%s (B:%u - O:%u) %s", static_cast<LPCSTR>(typeName), block, offset,
                static_cast<LPCSTR>(addressText));
    return text;
}
