// Types that hold themselves.
#pragma once

#include <cstdint>
#include <vector>

// For each node of a graph the number of its ring, that is of the nodes that lead to it and to which it leads; a node
// in no ring has kNoRing. `edges` are the nodes to which each leads.
constexpr std::uint32_t kNoRing = UINT32_MAX;
std::vector<std::uint32_t> FindRings(const std::vector<std::vector<std::uint32_t>>& edges);
