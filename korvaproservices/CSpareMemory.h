#pragma once

#include <cstddef>
#include <new>
#include <utility>

// Keeps the memory of one object that is gone for the next one of its kind.
//
// A caller mostly holds one list and one element of it at a time, and asks for a
// million of each. Asked of the system, that memory costs a twentieth of a load.
class CSpareMemory
{
public:
    CSpareMemory() noexcept = default;
    CSpareMemory(const CSpareMemory&) = delete;
    CSpareMemory& operator=(const CSpareMemory&) = delete;
    ~CSpareMemory() { ::operator delete(spare); }

    // For an object of `bytes`, always the same number. May raise std::bad_alloc.
    void* Take(std::size_t bytes) { return spare ? std::exchange(spare, nullptr) : ::operator new(bytes); }
    void GiveBack(void* memory) noexcept { ::operator delete(std::exchange(spare, memory)); }

private:
    void* spare = nullptr;
};
