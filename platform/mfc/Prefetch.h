#pragma once

// Asks the processor to fetch the memory at `place` into its cache. A hint alone: any address will do, and nothing
// but the time of a later access can tell.
inline void Prefetch(const void* place) noexcept
{
    __builtin_prefetch(place);
}
