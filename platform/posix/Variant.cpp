#include "platform/com/Variant.h"

HRESULT VariantClear(VARIANT* value)
{
    switch (value->vt) {
    case VT_BSTR:
        SysFreeString(value->bstrVal);
        break;
    case VT_EMPTY:
    case VT_I2:
    case VT_I4:
    case VT_R4:
    case VT_R8:
    case VT_BOOL:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
        break;
    default:
        return E_INVALIDARG; // a type that this layer does not know how to free
    }
    VariantInit(value);
    return S_OK;
}
