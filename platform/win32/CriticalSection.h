// The re-entrant mutual exclusion of one process.
#pragma once

#include "platform/win32/Types.h"

#ifndef _WIN32

#include <pthread.h>

struct CRITICAL_SECTION
{
    pthread_mutex_t mutex;
};

// The thread that entered may enter again and must leave as often. The section
// must not be moved while initialised.
PLATFORM_API void InitializeCriticalSection(CRITICAL_SECTION* section);
PLATFORM_API void DeleteCriticalSection(CRITICAL_SECTION* section);
PLATFORM_API void EnterCriticalSection(CRITICAL_SECTION* section);
PLATFORM_API void LeaveCriticalSection(CRITICAL_SECTION* section);

#endif
