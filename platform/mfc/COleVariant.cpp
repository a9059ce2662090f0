#include "platform/mfc/COleVariant.h"

#include "platform/mfc/CBstr.h"
#include "platform/mfc/Exceptions.h"

COleVariant::COleVariant(LONG value) noexcept : COleVariant()
{
    vt = VT_I4;
    lVal = value;
}

COleVariant::COleVariant(LPCSTR text, UINT codePage) : COleVariant()
{
    try {
        bstrVal = text ? CBstr::FromNarrow(text, codePage).Detach() : nullptr;
        vt = VT_BSTR;
    } catch (const COleException&) {
        AfxThrowMemoryException();
    }
}

VARIANT COleVariant::Detach() noexcept
{
    const VARIANT value = *this;
    VariantInit(this);
    return value;
}
