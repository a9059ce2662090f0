#pragma once

#include "platform/win32/CriticalSection.h"

// A re-entrant lock; taken and released through CSingleLock. A thread takes locks in the order of their ranks.
class CCriticalSection
{
public:
    explicit CCriticalSection(int lockRank) : rank(lockRank) { InitializeCriticalSection(&section); }
    CCriticalSection(const CCriticalSection&) = delete;
    CCriticalSection& operator=(const CCriticalSection&) = delete;
    ~CCriticalSection() { DeleteCriticalSection(&section); }

private:
    friend class CSingleLock;

    const int rank;
    CRITICAL_SECTION section;
};
