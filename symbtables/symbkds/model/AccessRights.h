#pragma once

#include <cstdint>

constexpr std::uint16_t kReadWrite = 3; // the access rights of what does not say

// The access rights, 1 read, 2 write, 3 both, 0 none, that a RequestAccessRight value stands for: 1 for read, 2 for
// both, 3 for write, anything else for none.
std::uint16_t AccessRightsFrom(std::int32_t requested);
