// Fields of the library's records by byte offset.
#pragma once

#include <cstddef>
#include <cstring>

// Whether the records that hold pointers have their 64-bit layout.
inline constexpr bool kWideRecords = sizeof(void*) == 8;

template <class Value>
Value ReadAt(const void* record, std::size_t offset)
{
    Value value;
    std::memcpy(&value, static_cast<const char*>(record) + offset, sizeof(value));
    return value;
}
