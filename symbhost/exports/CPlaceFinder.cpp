#include "symbhost/exports/CPlaceFinder.h"

#include <algorithm>
#include <utility>

namespace {

constexpr unsigned kBlockShift = 40; // no place has that many bits

std::uint64_t Position(const Place& place, std::uint64_t bit)
{
    return (std::uint64_t{place.block} << kBlockShift) + bit;
}

std::vector<std::uint64_t> Positions(const std::vector<Place>& places, std::uint64_t Place::*end)
{
    std::vector<std::uint64_t> positions;
    positions.reserve(places.size());
    for (const Place& place : places)
        positions.push_back(Position(place, place.*end));
    std::ranges::sort(positions);
    positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
    return positions;
}

} // namespace

CPlaceFinder::CBestSpans::CBestSpans(const std::vector<Span>& all, std::vector<std::uint64_t> sortedKeys,
                                     IsBetter better)
    : spans(all), keys(std::move(sortedKeys)), best(keys.size() * 2, 0), isBetter(better)
{}

const CPlaceFinder::Span* CPlaceFinder::CBestSpans::Better(const Span* a, const Span* b) const
{
    return !a || (b && isBetter(*b, *a)) ? b : a;
}

void CPlaceFinder::CBestSpans::AddLast(std::uint64_t key)
{
    std::size_t node = keys.size() + static_cast<std::size_t>(std::ranges::lower_bound(keys, key) - keys.begin());
    for (; node > 0; node /= 2)
        if (best[node] == 0 || isBetter(spans.back(), spans[best[node] - 1]))
            best[node] = static_cast<Number>(spans.size());
}

const CPlaceFinder::Span* CPlaceFinder::CBestSpans::Find(std::uint64_t firstKey, std::uint64_t lastKey) const
{
    const auto leafOf = [this](auto position) {
        return keys.size() + static_cast<std::size_t>(position - keys.begin());
    };
    const auto spanAt = [this](std::size_t node) { return best[node] == 0 ? nullptr : &spans[best[node] - 1]; };
    if (firstKey > lastKey)
        return nullptr;
    const Span* found = nullptr;
    std::size_t from = leafOf(std::ranges::lower_bound(keys, firstKey));
    std::size_t behind = leafOf(std::ranges::upper_bound(keys, lastKey));
    for (; from < behind; from /= 2, behind /= 2) {
        if (from % 2 != 0)
            found = Better(found, spanAt(from++));
        if (behind % 2 != 0)
            found = Better(found, spanAt(--behind));
    }
    return found;
}

CPlaceFinder::CPlaceFinder(const std::vector<Place>& all)
    : byFirstReachingFurthest(
          spans, Positions(all, &Place::first),
          [](const Span& a, const Span& b) { return a.last != b.last ? a.last > b.last : a.first < b.first; }),
      byFirstReachingLeast(spans, Positions(all, &Place::first),
                           [](const Span& a, const Span& b) { return a.last < b.last; }),
      byLastBeginningFirst(spans, Positions(all, &Place::last),
                           [](const Span& a, const Span& b) { return a.first < b.first; })
{}

CPlaceFinder::Span CPlaceFinder::SpanOf(const Place& place, Number number)
{
    return {Position(place, place.first), Position(place, place.last), number};
}

void CPlaceFinder::Add(const Place& place, Number number)
{
    const Span span = SpanOf(place, number);
    if (place.IsBit() && !bits.try_emplace(span.first, number).second)
        return; // the first of several tells all that the others would
    spans.push_back(span);
    byFirstReachingFurthest.AddLast(span.first);
    byFirstReachingLeast.AddLast(span.first);
    byLastBeginningFirst.AddLast(span.last);
}

std::optional<CPlaceFinder::Number> CPlaceFinder::FindOverlap(const Place& place) const
{
    const Span asked = SpanOf(place, 0);
    if (place.IsBit()) {
        const auto same = bits.find(asked.first);
        return same == bits.end() ? std::nullopt : std::optional(same->second);
    }
    const Span* found = byLastBeginningFirst.Find(asked.first, asked.last - 1);
    if (found && found->first < asked.first)
        return found->number;
    found = byFirstReachingFurthest.Find(asked.first + 1, asked.last);
    return found && found->last > asked.last ? std::optional(found->number) : std::nullopt;
}

std::optional<CPlaceFinder::Number> CPlaceFinder::FindAlias(const Place& place) const
{
    const Span asked = SpanOf(place, 0);
    const std::uint64_t blockStart = Position(place, 0);
    const Span* found = byFirstReachingFurthest.Find(blockStart, asked.first);
    const bool isSameBit = place.IsBit() && found && found->first == found->last;
    if (found && found->last >= asked.last && !isSameBit)
        return found->number;
    if (place.IsBit())
        return std::nullopt;
    found = byFirstReachingLeast.Find(asked.first, asked.last);
    return found && found->last <= asked.last ? std::optional(found->number) : std::nullopt;
}
