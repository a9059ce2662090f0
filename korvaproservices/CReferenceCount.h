#pragma once

#include "platform/win32/Types.h"

#include <atomic>

// The references to one object, beginning with the one of its creator.
class CReferenceCount
{
public:
    ULONG Increment() noexcept { return count.fetch_add(1, std::memory_order_relaxed) + 1; }

    // 0 when the last reference is gone and the object belongs to the caller alone.
    ULONG Decrement() noexcept
    {
        // Whoever holds the only reference races with nobody: that spares the
        // locked instruction for nearly every element and list of a walk.
        if (count.load(std::memory_order_acquire) == 1)
            return 0;
        return count.fetch_sub(1, std::memory_order_acq_rel) - 1;
    }

    // Begins a new life of a recycled object.
    void Reset() noexcept { count.store(1, std::memory_order_relaxed); }

private:
    std::atomic<ULONG> count{1};
};
