#pragma once

#include "symbhost/exports/CRowStore.h"

#include <optional>
#include <vector>

// Finds kept rows by name in any case, each once: of rows with one name every search gives the next.
class CRowIndex
{
public:
    // The rows stay the caller's and outlive the index.
    explicit CRowIndex(const CRowStore& indexed);

    // A row of this name that no search gave before; of a name whose rows were all given, the first again.
    std::optional<std::size_t> Find(std::string_view name);
    bool WasFound(std::size_t row) const { return found[row]; }

private:
    struct Position
    {
        std::size_t hash; // of the upper-case name
        std::uint32_t row;
    };

    const CRowStore& rows;
    std::vector<Position> positions; // by hash, then row
    std::vector<bool> found;
    std::size_t expected = 0; // the row behind the one found last: two listings are mostly alike
};
