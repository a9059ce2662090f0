#include "platform/posix/BlockTag.h"

#ifndef NDEBUG

#include <cstdio>
#include <cstdlib>

namespace {

// Volatile, because a store into a block that is freed next counts as dead.
volatile BlockTag* TagOf(void* callersBlock)
{
    return reinterpret_cast<volatile BlockTag*>(static_cast<char*>(callersBlock) - kBlockTagDistance);
}

const char* WhatCarries(BlockTag tag)
{
    switch (tag) {
    case BlockTag::Task:
        return "a block of the task allocator";
    case BlockTag::Text:
        return "a BSTR";
    default:
        return "no block of this kind, or one that was freed before";
    }
}

} // namespace

void PutBlockTag(void* callersBlock, BlockTag tag)
{
    *TagOf(callersBlock) = tag;
}

void CheckAndClearBlockTag(void* callersBlock, BlockTag tag, const char* freeing)
{
    const BlockTag found = *TagOf(callersBlock);
    if (found != tag) {
        std::fprintf(stderr, "%s: %p is %s\n", freeing, callersBlock, WhatCarries(found));
        std::abort();
    }
    *TagOf(callersBlock) = BlockTag::Freed;
}

#endif
