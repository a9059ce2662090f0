#include "platform/mfc/LockOrder.h"

#ifndef NDEBUG

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <utility>

namespace {

struct HeldLock
{
    const void* lock;
    int rank;
};

// Enough for every thread there is; locks beyond are not checked.
struct HeldLocks
{
    std::array<HeldLock, 16> locks;
    std::size_t count;
    std::size_t hidden; // of these, the first so many do not count
};

thread_local HeldLocks held;

} // namespace

void NoteLockTaken(const void* lock, int rank) noexcept
{
    const std::span<const HeldLock> all(held.locks.data(), std::min(held.count, held.locks.size()));
    const auto taken = all.subspan(std::min(held.hidden, all.size()));
    const auto isLock = [lock](const HeldLock& other) { return other.lock == lock; };
    const auto isAbove = [rank](const HeldLock& other) { return other.rank >= rank; };
    if (std::ranges::none_of(taken, isLock) && std::ranges::any_of(taken, isAbove)) {
        std::fputs("locks are taken in the wrong order\n", stderr);
        std::abort();
    }
    if (held.count < held.locks.size())
        held.locks[held.count] = {lock, rank};
    ++held.count;
}

void NoteLockLeft() noexcept
{
    --held.count;
}

CForeignCall::CForeignCall() noexcept : before(std::exchange(held.hidden, held.count)) {}

CForeignCall::~CForeignCall()
{
    held.hidden = before;
}

#endif
