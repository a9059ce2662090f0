#include "bench/CountedHeap.h"

#include <cstddef>

// The allocator of the C library under the names by which it may be wrapped.
extern "C" {
void* __libc_malloc(std::size_t bytes);
void* __libc_calloc(std::size_t count, std::size_t bytes);
void* __libc_realloc(void* block, std::size_t bytes);
void __libc_free(void* block);
std::size_t malloc_usable_size(void* block);
}

namespace {

constexpr std::int64_t kBlockOverhead = 8; // in front of each block

thread_local bool counting = false;
thread_local HeapUse use;

std::int64_t SizeOf(void* block)
{
    return block ? static_cast<std::int64_t>(malloc_usable_size(block)) + kBlockOverhead : 0;
}

void* Counted(void* block)
{
    if (counting) {
        ++use.allocations;
        use.bytes += SizeOf(block);
    }
    return block;
}

} // namespace

void StartCounting()
{
    use = {};
    counting = true;
}

HeapUse StopCounting()
{
    counting = false;
    return use;
}

extern "C" {

__attribute__((visibility("default"))) void* malloc(std::size_t bytes)
{
    return Counted(__libc_malloc(bytes));
}

__attribute__((visibility("default"))) void* calloc(std::size_t count, std::size_t bytes)
{
    return Counted(__libc_calloc(count, bytes));
}

__attribute__((visibility("default"))) void* realloc(void* block, std::size_t bytes)
{
    if (counting)
        use.bytes -= SizeOf(block);
    return Counted(__libc_realloc(block, bytes));
}

__attribute__((visibility("default"))) void free(void* block)
{
    if (counting)
        use.bytes -= SizeOf(block);
    __libc_free(block);
}
}
