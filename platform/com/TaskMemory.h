// The task allocator: memory that one module allocates and another frees.
#pragma once

#include "platform/win32/Types.h"

#ifdef _WIN32

#include <objbase.h>

#else

// Null when memory is short.
PLATFORM_API void* CoTaskMemAlloc(std::size_t bytes);
// Null leaves the old block valid; a null `block` allocates.
PLATFORM_API void* CoTaskMemRealloc(void* block, std::size_t bytes);
// Null is allowed.
PLATFORM_API void CoTaskMemFree(void* block);

#endif
