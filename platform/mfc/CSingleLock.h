#pragma once

#include "platform/mfc/CCriticalSection.h"
#include "platform/mfc/LockOrder.h"

// Holds a CCriticalSection for its own lifetime.
class CSingleLock
{
public:
    // With `initialLock` the lock is taken at once.
    explicit CSingleLock(CCriticalSection* wanted, BOOL initialLock = FALSE) : lock(wanted)
    {
        if (initialLock)
            Lock();
    }
    CSingleLock(const CSingleLock&) = delete;
    CSingleLock& operator=(const CSingleLock&) = delete;
    ~CSingleLock()
    {
        if (!locked)
            return;
        NoteLockLeft();
        LeaveCriticalSection(&lock->section);
    }

    void Lock()
    {
        NoteLockTaken(lock, lock->rank);
        EnterCriticalSection(&lock->section);
        locked = true;
    }

private:
    CCriticalSection* lock;
    bool locked = false;
};
