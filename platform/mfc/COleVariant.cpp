#include "platform/mfc/COleVariant.h"

#include "platform/mfc/Conversion.h"
#include "platform/mfc/Exceptions.h"

COleVariant::COleVariant(LONG value) noexcept : COleVariant()
{
    vt = VT_I4;
    lVal = value;
}

COleVariant::COleVariant(LPCSTR text, UINT codePage) : COleVariant()
{
    bstrVal = text ? MakeBstr(text, codePage) : nullptr;
    if (text && !bstrVal)
        AfxThrowMemoryException();
    vt = VT_BSTR;
}

VARIANT COleVariant::Detach() noexcept
{
    const VARIANT value = *this;
    VariantInit(this);
    return value;
}
