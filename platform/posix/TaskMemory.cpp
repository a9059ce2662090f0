#include "platform/com/TaskMemory.h"

#include "platform/posix/BlockTag.h"

#include <algorithm>
#include <cstdlib>

namespace {

#ifndef NDEBUG
constexpr std::size_t kHeaderBytes = alignof(std::max_align_t);
static_assert(kHeaderBytes >= kBlockTagDistance);
#else
constexpr std::size_t kHeaderBytes = 0;
#endif

// The start of the block in the memory of malloc; takes the tag off in debug builds.
void* BeginFreeing(void* block, [[maybe_unused]] const char* freeing)
{
    if (!block)
        return nullptr;
#ifndef NDEBUG
    CheckAndClearBlockTag(block, BlockTag::Task, freeing);
#endif
    return static_cast<char*>(block) - kHeaderBytes;
}

void* CallersBlock(void* start)
{
    void* const block = static_cast<char*>(start) + kHeaderBytes;
#ifndef NDEBUG
    PutBlockTag(block, BlockTag::Task);
#endif
    return block;
}

} // namespace

void* CoTaskMemAlloc(std::size_t bytes)
{
    return CoTaskMemRealloc(nullptr, bytes);
}

void* CoTaskMemRealloc(void* block, std::size_t bytes)
{
    if (block && bytes == 0) {
        CoTaskMemFree(block);
        return nullptr;
    }
    if (bytes > static_cast<std::size_t>(PTRDIFF_MAX) - kHeaderBytes)
        return nullptr;
    void* const start = BeginFreeing(block, "CoTaskMemRealloc");
    void* const larger = std::realloc(start, kHeaderBytes + std::max<std::size_t>(bytes, 1));
    if (larger)
        return CallersBlock(larger);
    if (start)
        CallersBlock(start); // the old block stays the caller's
    return nullptr;
}

void CoTaskMemFree(void* block)
{
    std::free(BeginFreeing(block, "CoTaskMemFree"));
}
