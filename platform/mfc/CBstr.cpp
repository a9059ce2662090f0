#include "platform/mfc/CBstr.h"

#include "platform/mfc/Exceptions.h"
#include "platform/win32/CodePage.h"

#include <algorithm>
#include <climits>

namespace {

// Uninitialised but for the terminator.
BSTR Allocate(int units)
{
    BSTR text = SysAllocStringLen(nullptr, static_cast<UINT>(units));
    if (!text)
        AfxThrowOleException(E_OUTOFMEMORY);
    return text;
}

} // namespace

CBstr::CBstr(LPCWSTR text) : held(SysAllocString(text))
{
    if (text && !held)
        AfxThrowOleException(E_OUTOFMEMORY);
}

CBstr CBstr::FromNarrow(LPCSTR text, unsigned codePage)
{
    if (!text)
        text = "";
    CBstr converted;
    // Nearly every text is ASCII, which is the same in all code pages.
    int ascii = 0;
    while (ascii < INT_MAX && text[ascii] != '\0' && static_cast<unsigned char>(text[ascii]) < 0x80)
        ++ascii;
    if (text[ascii] == '\0') {
        converted.held = Allocate(ascii);
        std::copy_n(text, ascii, converted.held);
        return converted;
    }
    const int units = MultiByteToWideChar(codePage, 0, text, -1, nullptr, 0);
    if (units == 0)
        AfxThrowOleException(HRESULT_FROM_WIN32(GetLastError()));
    converted.held = Allocate(units - 1);
    MultiByteToWideChar(codePage, 0, text, -1, converted.held, units);
    return converted;
}
