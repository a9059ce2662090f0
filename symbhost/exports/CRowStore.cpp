#include "symbhost/exports/CRowStore.h"

#include "symbhost/Failure.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace {

constexpr std::size_t kBlockBytes = 256 * 1024;

} // namespace

char* CRowStore::Room(std::size_t bytes)
{
    if (bytes > freeBytes) {
        freeBytes = std::max(bytes, kBlockBytes);
        textBytes += freeBytes;
        blocks.push_back(std::make_unique<char[]>(freeBytes));
        free = blocks.back().get();
    }
    freeBytes -= bytes;
    return std::exchange(free, free + bytes);
}

const char* CRowStore::Keep(std::string_view text)
{
    if (text.empty())
        return "";
    const char*& known = recent[std::hash<std::string_view>()(text) % kRecentTexts];
    if (known && known == text)
        return known;
    char* const kept = Room(text.size() + 1);
    *std::ranges::copy(text, kept).out = '\0';
    return known = kept;
}

void CRowStore::Add(const Row& row)
{
    if (textBytes + std::uint64_t{rows.size()} * sizeof(StoredRow) > kMostBytes)
        throw CHostError("the symbols to keep take more than " + std::to_string(kMostBytes >> 30U) + " GiB");
    rows.push_back({static_cast<const RowFacts&>(row), Keep(row.name), Keep(row.address), Keep(row.typeName),
                    Keep(row.kindName), Keep(row.comment), Keep(row.customerString)});
}

Row CRowStore::At(std::size_t index) const
{
    const StoredRow& stored = rows[index];
    return {stored.facts,    stored.name,    stored.address,       stored.typeName,
            stored.kindName, stored.comment, stored.customerString};
}
