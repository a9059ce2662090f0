// Tick count and yielding.
#pragma once

#include "platform/win32/Types.h"

#ifndef _WIN32

// Milliseconds since the system started, modulo 2^32.
PLATFORM_API DWORD GetTickCount();

// Pauses the thread; 0 gives the rest of its time slice to another ready thread.
PLATFORM_API void Sleep(DWORD milliseconds);

#endif
