#include "platform/com/BstrHolder.h"

#include "platform/mfc/Exceptions.h"
#include "platform/win32/CodePage.h"

namespace {

// Copies `units` units, or leaves them uninitialised when `text` is null.
BSTR Allocate(LPCWSTR text, int units)
{
    BSTR copy = SysAllocStringLen(text, static_cast<UINT>(units));
    if (!copy)
        AfxThrowOleException(E_OUTOFMEMORY);
    return copy;
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
    // Nearly every text is short and ASCII, which is the same in all code pages.
    constexpr int kShortUnits = 128;
    WCHAR shortText[kShortUnits];
    int ascii = 0;
    while (ascii < kShortUnits && text[ascii] != '\0' && static_cast<unsigned char>(text[ascii]) < 0x80) {
        shortText[ascii] = static_cast<WCHAR>(text[ascii]);
        ++ascii;
    }
    if (ascii < kShortUnits && text[ascii] == '\0') {
        converted.held = Allocate(shortText, ascii);
        return converted;
    }
    const int units = MultiByteToWideChar(codePage, 0, text, -1, nullptr, 0);
    if (units == 0)
        AfxThrowOleException(HRESULT_FROM_WIN32(GetLastError()));
    converted.held = Allocate(nullptr, units - 1);
    MultiByteToWideChar(codePage, 0, text, -1, converted.held, units);
    return converted;
}
