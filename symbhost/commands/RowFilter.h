// Which rows a user wants to see.
#pragma once

#include "symbhost/exports/Row.h"

#include <optional>
#include <string>

// Whether `text` is like `glob` in any case: * stands for any text, ? for one character.
bool MatchesGlob(std::string_view text, std::string_view glob);

struct RowFilter
{
    std::optional<std::string> name;     // a glob for the whole name
    std::optional<std::string> type;     // the whole type name
    std::optional<std::string> comment;  // a part
    std::optional<std::string> customer; // a part

    bool Accepts(const Row& row) const;
};
