#include "symbhost/exports/CMemoryMap.h"

#include <algorithm>
#include <iterator>
#include <tuple>

void CMemoryMap::Sort()
{
    const auto position = [](const Variable& variable) {
        return std::tuple(variable.place.block, variable.place.FirstByte(), variable.number);
    };
    std::ranges::sort(variables, {}, position);
    isSorted = true;
}

void CMemoryMap::Rewind()
{
    next = 0;
    present.clear();
    end.clear();
    isShared = false;
}

bool CMemoryMap::HasNextInBlock() const
{
    return next < variables.size() && variables[next].place.block == run.block;
}

bool CMemoryMap::Next()
{
    if (!isSorted)
        Sort();
    run.variables.clear();
    run.isCut = false;
    std::uint64_t from = run.to + 1;
    EndBefore(from);
    const bool isNewBlock = present.empty() && (next == 0 || !HasNextInBlock());
    if (isNewBlock) {
        if (next == variables.size())
            return false;
        run.block = variables[next].place.block;
        from = variables[next].place.FirstByte();
        isShared = false;
    }
    run.from = from;
    Begin(from);
    run.to = present.empty() ? variables[next].place.FirstByte() - 1 : end.begin()->first;
    if (!present.empty() && HasNextInBlock())
        run.to = std::min(run.to, variables[next].place.FirstByte() - 1);
    run.isCut = present.size() > MemoryRun::kMostVariables;
    const auto count = static_cast<std::ptrdiff_t>(std::min(present.size(), MemoryRun::kMostVariables));
    run.variables.assign(present.begin(), std::next(present.begin(), count));
    const bool isOverlap = isShared && from <= sharedUntil;
    run.state = present.empty() ? MemoryRun::State::Free
                : isOverlap     ? MemoryRun::State::Overlap
                                : MemoryRun::State::Used;
    return true;
}

void CMemoryMap::EndBefore(std::uint64_t from)
{
    while (!end.empty() && end.begin()->first < from) {
        present.erase(end.begin()->second);
        end.erase(end.begin());
    }
}

void CMemoryMap::Begin(std::uint64_t from)
{
    const std::size_t first = next;
    NoteSharing(from);
    while (HasNextInBlock() && variables[next].place.FirstByte() == from)
        ++next;
    for (std::size_t at = first; at < next; ++at) {
        present.insert(variables[at].number);
        end.emplace(variables[at].place.LastByte(), variables[at].number);
    }
}

void CMemoryMap::NoteSharing(std::uint64_t from)
{
    const auto share = [this](std::uint64_t last) {
        sharedUntil = isShared ? std::max(sharedUntil, last) : last;
        isShared = true;
    };
    std::set<std::uint64_t> bits;
    for (std::size_t at = next; at < variables.size(); ++at) {
        const Place& place = variables[at].place;
        if (place.block != run.block || place.FirstByte() != from)
            return;
        // Of those that began before and end inside this one, the last to end shares the most.
        const auto behind = end.lower_bound(place.LastByte());
        if (behind != end.begin())
            share(std::prev(behind)->first);
        if (place.IsBit() && !bits.insert(place.first).second)
            share(from);
    }
}
