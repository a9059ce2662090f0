#pragma once

#include "symbhost/exports/Place.h"

#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

// Finds, among the places that were added before, one that shares bits with a given place; in logarithmic time, so
// that many variables at one place cost no more than others.
class CPlaceFinder
{
public:
    using Number = std::uint32_t;

    // `all`: every place that will be added or asked for.
    explicit CPlaceFinder(const std::vector<Place>& all);
    CPlaceFinder(const CPlaceFinder&) = delete;
    CPlaceFinder& operator=(const CPlaceFinder&) = delete;
    ~CPlaceFinder() = default;

    void Add(const Place& place, Number number);

    // Shares a part with `place` while each has bits of its own, or is the same single bit.
    std::optional<Number> FindOverlap(const Place& place) const;
    // At the same place, around it or inside it, the same single bit aside.
    std::optional<Number> FindAlias(const Place& place) const;

private:
    struct Span // in bits of all blocks one behind the other
    {
        std::uint64_t first;
        std::uint64_t last;
        Number number;
    };

    // Over a sorted list of keys, the span with the best value among those with keys in a range.
    class CBestSpans
    {
    public:
        using IsBetter = bool (*)(const Span&, const Span&);

        // The spans stay the owner's and may become more.
        CBestSpans(const std::vector<Span>& all, std::vector<std::uint64_t> sortedKeys, IsBetter better);
        // The span that was added last.
        void AddLast(std::uint64_t key);
        // Null when no key lies between the two, both included.
        const Span* Find(std::uint64_t firstKey, std::uint64_t lastKey) const;

    private:
        const Span* Better(const Span* a, const Span* b) const;

        const std::vector<Span>& spans;
        std::vector<std::uint64_t> keys;
        std::vector<Number> best; // a binary tree in an array; the leaves are its second half; 0: none, else from 1
        IsBetter isBetter;
    };

    static Span SpanOf(const Place& place, Number number);

    std::vector<Span> spans;
    CBestSpans byFirstReachingFurthest; // and of these the longest
    CBestSpans byFirstReachingLeast;
    CBestSpans byLastBeginningFirst;
    std::unordered_map<std::uint64_t, Number> bits;
};
