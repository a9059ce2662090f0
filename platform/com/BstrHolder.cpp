#include "platform/com/BstrHolder.h"

#include "platform/mfc/Exceptions.h"
#include "platform/win32/CodePage.h"

CBstr::CBstr(LPCWSTR text) : held(SysAllocString(text))
{
    if (text && !held)
        AfxThrowOleException(E_OUTOFMEMORY);
}

CBstr CBstr::FromNarrow(LPCSTR text, unsigned codePage)
{
    if (!text)
        text = "";
    const int units = MultiByteToWideChar(codePage, 0, text, -1, nullptr, 0);
    if (units == 0)
        AfxThrowOleException(HRESULT_FROM_WIN32(GetLastError()));
    CBstr converted;
    converted.held = SysAllocStringLen(nullptr, static_cast<UINT>(units - 1));
    if (!converted.held)
        AfxThrowOleException(E_OUTOFMEMORY);
    MultiByteToWideChar(codePage, 0, text, -1, converted.held, units);
    return converted;
}
