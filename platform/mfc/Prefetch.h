#pragma once

#include <cstdint>

// Asks the processor to fetch two cache lines from `place` on into its cache: an object or a text begins anywhere in
// the first. A hint alone: any address will do, and nothing but the time of a later access can tell.
inline void Prefetch(const void* place) noexcept
{
    constexpr std::uintptr_t kCacheLine = 64;
    __builtin_prefetch(place);
    __builtin_prefetch(reinterpret_cast<const void*>(reinterpret_cast<std::uintptr_t>(place) + kCacheLine));
}
