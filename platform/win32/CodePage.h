// Conversion between UTF-16 and the narrow encodings.
#pragma once

#include "platform/win32/Types.h"

#ifndef _WIN32

// The process's and the threads' ANSI code page are UTF-8 here, so all three
// name the same encoding.
constexpr UINT CP_ACP = 0;
constexpr UINT CP_THREAD_ACP = 3;
constexpr UINT CP_UTF8 = 65001;

// Converts `narrowBytes` bytes (-1: up to and including the terminating null)
// to UTF-16. With `wideUnits` 0 nothing is written. Returns the units written
// or needed; 0 with GetLastError() on failure (no room, bad arguments). Each
// ill-formed sequence becomes one U+FFFD. `flags` must be 0.
PLATFORM_API int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR narrow, int narrowBytes, LPWSTR wide,
                                     int wideUnits);

// The opposite direction; a surrogate without its partner becomes U+FFFD. The
// last two arguments must be null.
PLATFORM_API int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR wide, int wideUnits, LPSTR narrow,
                                     int narrowBytes, LPCSTR defaultChar, BOOL* usedDefaultChar);

// Whether a byte is the first half of a character of two bytes: UTF-8 has none of that kind.
inline BOOL IsDBCSLeadByteEx(UINT, BYTE)
{
    return FALSE;
}

#endif
