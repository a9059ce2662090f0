#include "platform/mfc/CBstr.h"

#include "platform/mfc/Conversion.h"
#include "platform/mfc/Exceptions.h"

CBstr::CBstr(LPCWSTR text) : held(SysAllocString(text))
{
    if (text && !held)
        AfxThrowOleException(E_OUTOFMEMORY);
}

CBstr CBstr::FromNarrow(LPCSTR text, unsigned codePage)
{
    CBstr converted;
    converted.held = MakeBstr(text ? text : "", codePage);
    if (!converted.held)
        AfxThrowOleException(HRESULT_FROM_WIN32(GetLastError()));
    return converted;
}
