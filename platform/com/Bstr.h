// BSTR: a UTF-16 text that carries its length in bytes in the 32 bits in front
// of its first unit and is followed by a null unit.
#pragma once

#include "platform/win32/Types.h"

#ifdef _WIN32

#include <oleauto.h>

#else

using BSTR = OLECHAR*;

// A copy of `text` up to its terminator; null for null and when memory is short.
PLATFORM_API BSTR SysAllocString(const OLECHAR* text);
// A copy of `units` units (uninitialised when `text` is null, the terminator set); null when memory is short.
PLATFORM_API BSTR SysAllocStringLen(const OLECHAR* text, UINT units);
// Null is allowed.
PLATFORM_API void SysFreeString(BSTR text);
// Length in units; 0 for null.
PLATFORM_API UINT SysStringLen(BSTR text);

#endif
