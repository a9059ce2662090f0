#include "symbhost/exports/TypeRings.h"

#include <algorithm>

namespace {

// Strongly connected components by depth-first search, with a stack of its own instead of calls.
class CRingSearch
{
public:
    explicit CRingSearch(const std::vector<std::vector<std::uint32_t>>& graph)
        : edges(graph), rings(graph.size(), kNoRing), order(graph.size(), 0), lowest(graph.size(), 0),
          isOpen(graph.size(), false)
    {}

    std::vector<std::uint32_t> Run()
    {
        for (std::uint32_t node = 0; node < edges.size(); ++node)
            if (order[node] == 0)
                Search(node);
        return rings;
    }

private:
    struct Step
    {
        std::uint32_t node;
        std::size_t nextEdge;
    };

    void Enter(std::uint32_t node)
    {
        order[node] = lowest[node] = ++visited;
        open.push_back(node);
        isOpen[node] = true;
        steps.push_back({node, 0});
    }

    void Search(std::uint32_t start)
    {
        Enter(start);
        while (!steps.empty()) {
            Step& step = steps.back();
            if (step.nextEdge == edges[step.node].size()) {
                Leave(step.node);
                continue;
            }
            const std::uint32_t to = edges[step.node][step.nextEdge++];
            if (order[to] == 0)
                Enter(to);
            else if (isOpen[to])
                lowest[step.node] = std::min(lowest[step.node], order[to]);
        }
    }

    void Leave(std::uint32_t node)
    {
        steps.pop_back();
        if (!steps.empty())
            lowest[steps.back().node] = std::min(lowest[steps.back().node], lowest[node]);
        if (lowest[node] != order[node])
            return;
        const bool isRing = open.back() != node || std::ranges::find(edges[node], node) != edges[node].end();
        std::uint32_t member = 0;
        do {
            member = open.back();
            open.pop_back();
            isOpen[member] = false;
            rings[member] = isRing ? node : kNoRing;
        } while (member != node);
    }

    const std::vector<std::vector<std::uint32_t>>& edges;
    std::vector<std::uint32_t> rings;
    std::vector<std::uint32_t> order;  // of the visit, from 1; 0: not yet
    std::vector<std::uint32_t> lowest; // order that is reached from a node
    std::vector<bool> isOpen;
    std::vector<std::uint32_t> open; // visited, and not yet known to be in a ring or in none
    std::vector<Step> steps;
    std::uint32_t visited = 0;
};

} // namespace

std::vector<std::uint32_t> FindRings(const std::vector<std::vector<std::uint32_t>>& edges)
{
    return CRingSearch(edges).Run();
}
