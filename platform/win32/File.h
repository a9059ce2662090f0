// Files by handle, as far as the project reads and writes any.
#pragma once

#include "platform/win32/Types.h"

#ifndef _WIN32

constexpr DWORD GENERIC_READ = 0x80000000U;
constexpr DWORD GENERIC_WRITE = 0x40000000U;
constexpr DWORD FILE_SHARE_READ = 1;
constexpr DWORD CREATE_ALWAYS = 2;
constexpr DWORD OPEN_EXISTING = 3;
constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;
constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;
constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFFU;
constexpr DWORD FILE_TYPE_UNKNOWN = 0;
constexpr DWORD FILE_TYPE_DISK = 1;
constexpr DWORD FILE_TYPE_CHAR = 2;
constexpr DWORD FILE_TYPE_PIPE = 3;

struct LARGE_INTEGER
{
    LONGLONG QuadPart;
};

inline HANDLE const INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(-1));

// Opens a file: GENERIC_READ with OPEN_EXISTING, or GENERIC_WRITE with
// CREATE_ALWAYS (created, or emptied when it exists; pipes and sockets are not
// opened to be written). Opening never waits, not even on a named pipe. With `shareMode` 0 a file that another handle
// of this layer has open is refused with ERROR_SHARING_VIOLATION. `security` and `templateFile` must be null,
// `attributes` FILE_ATTRIBUTE_NORMAL.
PLATFORM_API HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD shareMode, void* security, DWORD disposition,
                                DWORD attributes, HANDLE templateFile);
PLATFORM_API HANDLE CreateFileW(LPCWSTR path, DWORD access, DWORD shareMode, void* security, DWORD disposition,
                                DWORD attributes, HANDLE templateFile);

// Reads up to `bytes`; `done` 0 means the end of the file. `overlapped` must be null.
PLATFORM_API BOOL ReadFile(HANDLE file, void* buffer, DWORD bytes, DWORD* done, void* overlapped);
// Writes all of `bytes` or fails; `done` tells how many were written. `overlapped` must be null.
PLATFORM_API BOOL WriteFile(HANDLE file, const void* buffer, DWORD bytes, DWORD* done, void* overlapped);
PLATFORM_API BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size);
PLATFORM_API DWORD GetFileType(HANDLE file);
PLATFORM_API BOOL CloseHandle(HANDLE file);

// INVALID_FILE_ATTRIBUTES with GetLastError() when there is no such file.
PLATFORM_API DWORD GetFileAttributesW(LPCWSTR path);
PLATFORM_API BOOL DeleteFileA(LPCSTR path);

#endif

// Between the components of a path.
#ifdef _WIN32
constexpr char kPathSeparator = '\\';
#else
constexpr char kPathSeparator = '/';
#endif
