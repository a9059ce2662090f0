// The C runtime's allocator, which this program replaces by one that counts and fails on demand.
#pragma once

// Blocks allocated and not freed yet, by all threads.
long LivingBlocks();

// Which allocations fail.
enum class Shortage
{
    kOnce,   // one alone
    kForGood // that one and all behind it
};

// While it lives, the `ordinal`-th allocation (from 1) of this thread fails; one object at a time.
class CFailingAllocation
{
public:
    CFailingAllocation(long ordinal, Shortage shortage);
    CFailingAllocation(const CFailingAllocation&) = delete;
    CFailingAllocation& operator=(const CFailingAllocation&) = delete;
    ~CFailingAllocation();

    // Whether there were that many.
    static bool Happened();
};

// While it lives, allocations of this thread neither fail nor count: what a host does inside its sink.
class CAllocationsAtWill
{
public:
    CAllocationsAtWill();
    CAllocationsAtWill(const CAllocationsAtWill&) = delete;
    CAllocationsAtWill& operator=(const CAllocationsAtWill&) = delete;
    ~CAllocationsAtWill();

private:
    long left;
};
