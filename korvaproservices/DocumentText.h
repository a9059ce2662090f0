// Texts cross the interfaces in UTF-16 and stand in the document in UTF-8.
#pragma once

#include "platform/com/Bstr.h"

#include <string_view>

// A new text from UTF-8; each ill-formed sequence becomes U+FFFD. Never null:
// raises std::bad_alloc when memory is short.
BSTR BstrOf(const char* text);

// Null counts as empty.
inline std::basic_string_view<OLECHAR> ViewOf(BSTR text)
{
    return text ? std::basic_string_view<OLECHAR>(text, SysStringLen(text)) : std::basic_string_view<OLECHAR>();
}

// EqualsUtf16 for any text. May raise std::bad_alloc.
bool EqualsConverted(const char* utf8, std::basic_string_view<OLECHAR> utf16);

// Whether a text of the document is `utf16`. A text with a null unit equals
// none; half a surrogate pair counts as U+FFFD. May raise std::bad_alloc.
inline bool EqualsUtf16(const char* utf8, std::basic_string_view<OLECHAR> utf16)
{
    // Names are nearly always ASCII and mostly differ in the first letter.
    const char* at = utf8;
    for (const OLECHAR unit : utf16) {
        if (unit == 0 || unit >= 0x80)
            return EqualsConverted(utf8, utf16);
        if (static_cast<unsigned char>(*at++) != unit)
            return false;
    }
    return *at == '\0';
}
