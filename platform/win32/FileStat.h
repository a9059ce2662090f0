// The runtime library's file time query with 32-bit times.
#pragma once

#include "platform/win32/Types.h"

#include <cerrno>
#include <sys/stat.h>

#ifndef _WIN32

// The system's headers define this name as a macro for a field of their own.
#undef st_mtime

struct _stat32 // NOLINT(bugprone-reserved-identifier): the runtime library's name
{
    std::int32_t st_mtime; // modification time, seconds since 1970-01-01 UTC; -1 where 32 bits do not hold it
};

// That structure and function share a name is the interface itself.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wshadow"
// Returns 0, or -1 with errno set.
PLATFORM_API int _stat32(LPCSTR path, struct _stat32* status); // NOLINT(bugprone-reserved-identifier)
#pragma GCC diagnostic pop

#endif
