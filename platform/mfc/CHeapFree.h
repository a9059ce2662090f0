#pragma once

#include <cstdlib>

// Gives a block of malloc back, for std::unique_ptr.
struct CHeapFree
{
    void operator()(void* block) const noexcept { std::free(block); }
};
