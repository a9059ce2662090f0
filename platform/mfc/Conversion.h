// Texts between UTF-16 and a narrow encoding, in one step.
//
// Nearly every text is ASCII, which is the same in all code pages and goes a
// short way. Of other texts what cannot be converted becomes the code page's
// replacement.
#pragma once

#include "platform/com/Bstr.h"

#include <string>
#include <string_view>

using WideString = std::basic_string<WCHAR>;

// Both raise std::bad_alloc when memory is short. Without such a code page a text that is not ASCII becomes empty.
PLATFORM_API WideString Widen(std::string_view narrow, UINT codePage);
PLATFORM_API std::string Narrow(std::basic_string_view<WCHAR> wide, UINT codePage);

// A new text, the caller's. Null with GetLastError() when memory is short (ERROR_OUTOFMEMORY) or there is no such
// code page.
PLATFORM_API BSTR MakeBstr(std::string_view narrow, UINT codePage) noexcept;
