#include "faults/Allocations.h"

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <utility>

extern "C" {
void* __libc_malloc(std::size_t bytes);
void* __libc_calloc(std::size_t count, std::size_t bytes);
void* __libc_realloc(void* block, std::size_t bytes);
void __libc_free(void* block);
}

namespace {

constexpr long kNone = -1; // no allocation is to fail

std::atomic<long> living = 0;
thread_local long allocationsLeft = kNone; // until one fails; 0: the next
thread_local bool failsForGood = false;
thread_local bool happened = false;

bool MustFail()
{
    if (allocationsLeft == kNone || allocationsLeft-- > 0)
        return false;
    allocationsLeft = failsForGood ? 0 : kNone;
    happened = true;
    errno = ENOMEM;
    return true;
}

void* Counted(void* block)
{
    living += block != nullptr;
    return block;
}

} // namespace

#define REPLACEMENT extern "C" __attribute__((visibility("default")))

REPLACEMENT void* malloc(std::size_t bytes) noexcept
{
    return MustFail() ? nullptr : Counted(__libc_malloc(bytes));
}

REPLACEMENT void* calloc(std::size_t count, std::size_t bytes) noexcept
{
    return MustFail() ? nullptr : Counted(__libc_calloc(count, bytes));
}

REPLACEMENT void* realloc(void* block, std::size_t bytes) noexcept
{
    if (MustFail())
        return nullptr;
    void* const moved = __libc_realloc(block, bytes);
    living += (moved != nullptr && !block) - (block && !moved && bytes == 0);
    return moved;
}

REPLACEMENT void free(void* block) noexcept
{
    living -= block != nullptr;
    __libc_free(block);
}

long LivingBlocks()
{
    return living;
}

CFailingAllocation::CFailingAllocation(long ordinal, Shortage shortage)
{
    failsForGood = shortage == Shortage::kForGood;
    happened = false;
    allocationsLeft = ordinal - 1;
}

CFailingAllocation::~CFailingAllocation()
{
    allocationsLeft = kNone;
}

bool CFailingAllocation::Happened()
{
    return happened;
}

CAllocationsAtWill::CAllocationsAtWill() : left(std::exchange(allocationsLeft, kNone)) {}

CAllocationsAtWill::~CAllocationsAtWill()
{
    allocationsLeft = left;
}
