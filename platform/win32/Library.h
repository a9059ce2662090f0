// Loading shared libraries at run time.
#pragma once

#include "platform/win32/Types.h"

#ifdef _WIN32
#define SHARED_LIBRARY_NAME(name) name ".dll"
#else
#define SHARED_LIBRARY_NAME(name) "lib" name ".so"

using HMODULE = void*;
using FARPROC = void (*)();

// Null with GetLastError() ERROR_MOD_NOT_FOUND when the library cannot be loaded. A bare name is looked for beside the
// platform library, then where the system looks for libraries.
PLATFORM_API HMODULE LoadLibraryA(LPCSTR path);
// Null with GetLastError() ERROR_PROC_NOT_FOUND when the library does not export the name.
PLATFORM_API FARPROC GetProcAddress(HMODULE library, LPCSTR name);
PLATFORM_API BOOL FreeLibrary(HMODULE library);

// The path of the running program (`library` null) in at most `bytes` bytes
// with its terminator. Returns its length; `bytes` when it was cut; 0 on failure.
PLATFORM_API DWORD GetModuleFileNameA(HMODULE library, LPSTR path, DWORD bytes);

#endif
