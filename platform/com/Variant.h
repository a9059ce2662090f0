// VARIANT: a value with its type.
#pragma once

#include "platform/com/Bstr.h"

#ifndef _WIN32

#include <cstring>

using VARTYPE = std::uint16_t;

enum VARENUM : VARTYPE
{
    VT_EMPTY = 0,
    VT_I2 = 2,
    VT_I4 = 3,
    VT_R4 = 4,
    VT_R8 = 5,
    VT_BSTR = 8,
    VT_BOOL = 11,
    VT_UI1 = 17,
    VT_UI2 = 18,
    VT_UI4 = 19,
    VT_ARRAY = 0x2000
};

struct VARIANT
{
    VARTYPE vt;
    WORD wReserved1;
    WORD wReserved2;
    WORD wReserved3;
    union
    {
        LONG lVal;       // VT_I4
        BSTR bstrVal;    // VT_BSTR, owned
        void* record[2]; // gives the union the width it has on Windows
    };
};
static_assert(sizeof(void*) != 8 || sizeof(VARIANT) == 24);

inline void VariantInit(VARIANT* value)
{
    std::memset(value, 0, sizeof *value);
}
// Frees what the value owns and makes it VT_EMPTY.
PLATFORM_API HRESULT VariantClear(VARIANT* value);

#endif
