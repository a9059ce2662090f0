#include "platform/win32/Library.h"

#include "platform/posix/SharedLibrary.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <dlfcn.h>
#include <unistd.h>

HMODULE LoadLibraryA(LPCSTR path)
{
    // Without a name dlopen would answer with the running program.
    HMODULE library = path && *path ? OpenSharedLibrary(path) : nullptr;
    if (!library)
        SetLastError(ERROR_MOD_NOT_FOUND);
    return library;
}

FARPROC GetProcAddress(HMODULE library, LPCSTR name)
{
    void* const address = library && name ? dlsym(library, name) : nullptr;
    if (!address)
        SetLastError(ERROR_PROC_NOT_FOUND);
    return reinterpret_cast<FARPROC>(address);
}

BOOL FreeLibrary(HMODULE library)
{
    if (library && dlclose(library) == 0)
        return TRUE;
    SetLastError(ERROR_MOD_NOT_FOUND);
    return FALSE;
}

DWORD GetModuleFileNameA(HMODULE library, LPSTR path, DWORD bytes)
{
    if (library || !path || bytes == 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    char program[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", program, sizeof program);
    if (length <= 0) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return 0;
    }
    const DWORD kept = std::min(static_cast<DWORD>(length), bytes - 1);
    std::memcpy(path, program, kept);
    path[kept] = '\0';
    if (kept == static_cast<DWORD>(length))
        return kept;
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return bytes;
}
