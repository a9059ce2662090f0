#pragma once

#include <string_view>

// Whether a name begins with what stands before the first "*" of a pattern, or with all of a pattern without one. Case
// matters.
constexpr bool MatchNamePattern(std::string_view name, std::string_view pattern)
{
    return name.starts_with(pattern.substr(0, pattern.find('*')));
}
