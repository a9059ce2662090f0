#include "symbkds/browse/EntryText.h"

#include "symbkds/model/WideToUtf8.h"

#include <algorithm>

CString MakeEntryText(const CString& name, std::string_view fieldCodes, const CString& comment, const CString& address)
{
    CString entry = name;
    for (const char code : fieldCodes) {
        entry += '|';
        if (code == 'A')
            entry += address;
        else if (code == 'C')
            entry += comment;
    }
    return entry;
}

CString AsContinuationPoint(const CString& entry)
{
    int end = std::min(entry.GetLength(), kMaxUtf8Bytes);
    while (end > 0 && end < entry.GetLength() && (entry.GetAt(end) & 0xC0) == 0x80)
        --end;
    return entry.Left(end);
}

CString MakeUnlocatedField(const CString& typeName, std::uint32_t block, std::uint32_t offset,
                           const CString& addressText)
{
    CString text;
    text.Format("U-%s (B:%u - O:%u) %s", static_cast<LPCSTR>(typeName), block, offset,
                static_cast<LPCSTR>(addressText));
    return text;
}
