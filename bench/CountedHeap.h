// What the process takes from malloc, in every library. Counting is off until
// it is asked for, and then concerns the calling thread alone.
#pragma once

#include <cstdint>

struct HeapUse
{
    std::int64_t allocations = 0;
    std::int64_t bytes = 0; // allocated and not freed, the allocator's own overhead included
};

// Begins at zero.
void StartCounting();
HeapUse StopCounting();
