// The order in which a thread takes its locks, checked in debug builds.
#pragma once

#include "platform/win32/Types.h"

#include <cstddef>

// A thread may take a lock that it holds already, and one of a higher rank than all that it holds. Anything else ends
// the program in a debug build, whether or not two threads ever meet there; a release build checks nothing.
#ifdef NDEBUG

inline void NoteLockTaken(const void*, int) noexcept {}
inline void NoteLockLeft() noexcept {}

class CForeignCall
{
public:
    CForeignCall() noexcept {}
    ~CForeignCall() {}
};

#else

PLATFORM_API void NoteLockTaken(const void* lock, int rank) noexcept;
// Locks are left in the reverse order of their taking.
PLATFORM_API void NoteLockLeft() noexcept;

// Code of somebody else runs while this lives: the locks held by then say nothing about those that it takes.
class PLATFORM_API CForeignCall
{
public:
    CForeignCall() noexcept;
    CForeignCall(const CForeignCall&) = delete;
    CForeignCall& operator=(const CForeignCall&) = delete;
    ~CForeignCall();

private:
    std::size_t before;
};

#endif
