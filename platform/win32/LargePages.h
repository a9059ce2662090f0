// Memory in large pages, where the system has them and leaves the choice to programs.
#pragma once

#include "platform/win32/Types.h"

#ifdef _WIN32

inline void PreferLargePages(void*, std::size_t) {}

#else

// Asks that a block of memory that is still unused be backed by large pages: a
// block of many megabytes then costs a few page faults instead of thousands. A
// hint alone: the block stays what it was, whoever allocated it.
PLATFORM_API void PreferLargePages(void* block, std::size_t bytes) noexcept;

#endif
