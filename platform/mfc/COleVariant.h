#pragma once

#include "platform/com/Variant.h"

// A VARIANT that owns its value. Texts that cannot be allocated raise CMemoryException.
class PLATFORM_API COleVariant : public VARIANT
{
public:
    COleVariant() noexcept { VariantInit(this); }
    explicit COleVariant(LONG value) noexcept;
    // VT_BSTR from narrow text in `codePage`; null gives a null BSTR.
    COleVariant(LPCSTR text, UINT codePage);
    COleVariant(const COleVariant&) = delete;
    COleVariant& operator=(const COleVariant&) = delete;
    ~COleVariant()
    {
        if (vt != VT_EMPTY) // mostly it was handed on
            VariantClear(this);
    }

    // Hands the value on; this variant is empty afterwards.
    VARIANT Detach() noexcept;
};
