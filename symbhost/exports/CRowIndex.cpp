#include "symbhost/exports/CRowIndex.h"

#include "symbhost/exports/RowChange.h"
#include "symbhost/exports/UpperName.h"

#include <algorithm>
#include <tuple>

CRowIndex::CRowIndex(const CRowStore& indexed) : rows(indexed), found(rows.Count())
{
    positions.reserve(rows.Count());
    for (std::size_t row = 0; row < rows.Count(); ++row)
        positions.push_back({HashOf(UpperName(std::string(rows.At(row).name))), static_cast<std::uint32_t>(row)});
    std::ranges::sort(positions, {}, [](const Position& position) { return std::tuple(position.hash, position.row); });
}

std::optional<std::size_t> CRowIndex::Find(std::string_view name)
{
    std::optional<std::size_t> match;
    if (expected < rows.Count() && !found[expected] && IsSameName(rows.At(expected).name, name))
        match = expected;
    else {
        const auto hash = HashOf(UpperName(std::string(name)));
        auto at = std::ranges::lower_bound(positions, hash, {}, &Position::hash);
        for (; at != positions.end() && at->hash == hash; ++at) {
            const bool isNew = !found[at->row];
            if ((match && !isNew) || !IsSameName(rows.At(at->row).name, name))
                continue;
            match = at->row;
            if (isNew)
                break;
        }
    }
    if (match) {
        found[*match] = true;
        expected = *match + 1;
    }
    return match;
}
