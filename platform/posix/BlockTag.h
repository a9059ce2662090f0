// Marks on the blocks of the COM allocators. In builds without NDEBUG a block
// freed by the wrong allocator, or twice, ends the program with a line that
// says so; with NDEBUG the marks do not exist.
#pragma once

#include "platform/win32/Types.h"

// The four bytes eight bytes in front of what the caller holds, in blocks of every allocator.
enum class BlockTag : std::uint32_t
{
    Freed = 0x44454546,
    Task = 0x4B534154,
    Text = 0x52545342
};

#ifndef NDEBUG
constexpr std::size_t kBlockTagDistance = 8;

void PutBlockTag(void* callersBlock, BlockTag tag);
// Ends the program unless the block, which is about to be freed by `freeing`, carries `tag`.
void CheckAndClearBlockTag(void* callersBlock, BlockTag tag, const char* freeing);
#endif
