#pragma once

#include "platform/win32/CriticalSection.h"

// A re-entrant lock; taken and released through CSingleLock.
class CCriticalSection
{
public:
    CCriticalSection() { InitializeCriticalSection(&section); }
    CCriticalSection(const CCriticalSection&) = delete;
    CCriticalSection& operator=(const CCriticalSection&) = delete;
    ~CCriticalSection() { DeleteCriticalSection(&section); }

private:
    friend class CSingleLock;
    CRITICAL_SECTION section;
};
