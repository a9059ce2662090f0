#pragma once

#include "symbhost/exports/Row.h"

#include <array>
#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

// Rows that are kept, at 80 bytes and their texts each. A text that came up shortly before, as types
// and comments do, is not kept again.
class CRowStore
{
public:
    // Raises CHostError when rows and texts take more than 4 GiB, as those of a damaged export with names of a
    // thousand characters may.
    void Add(const Row& row);
    std::size_t Count() const { return rows.size(); }
    // Its texts live as long as the store.
    Row At(std::size_t index) const;
    const RowFacts& FactsAt(std::size_t index) const { return rows[index].facts; }

private:
    // Null-terminated, in one of the blocks.
    const char* Keep(std::string_view text);
    char* Room(std::size_t bytes);

    struct StoredRow
    {
        RowFacts facts;
        const char* name;
        const char* address;
        const char* typeName;
        const char* kindName;
        const char* comment;
        const char* customerString;
    };

    static constexpr std::uint64_t kMostBytes = std::uint64_t{4} << 30U;
    static constexpr std::size_t kRecentTexts = 4096;

    std::deque<StoredRow> rows;
    std::vector<std::unique_ptr<char[]>> blocks;
    char* free = nullptr; // of the last block
    std::size_t freeBytes = 0;
    std::uint64_t textBytes = 0;                    // of all blocks
    std::array<const char*, kRecentTexts> recent{}; // by hash
};
