#pragma once

#include <cstdint>

// A range of controller memory whose objects have addresses such as %MW10.
struct MemoryArea
{
    std::uint32_t count = 0;      // objects in the area
    std::uint16_t firstIndex = 0; // number of its first object
    std::uint16_t block = 0;      // block number of the area
    std::uint32_t baseOffset = 0; // bytes from the start of the block to the first object
};
