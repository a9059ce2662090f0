#include "symbhost/commands/CArguments.h"

#include <algorithm>
#include <string_view>

CArguments::CArguments(int argc, const char* const* argv) : parsed(argv, argv + argc)
{
    const auto isEnd = [](std::string_view argument) { return argument == "--"; };
    const auto end = std::ranges::find_if(parsed, isEnd);
    if (end == parsed.end())
        return;
    rest.assign(end + 1, parsed.end());
    parsed.erase(end, parsed.end());
}

std::string CArguments::WithoutValue() const
{
    const auto isEmpty = [](std::string_view argument) {
        return argument.starts_with("--") && argument.find('=') == argument.size() - 1;
    };
    const auto found = std::ranges::find_if(parsed, isEmpty);
    return found == parsed.end() ? std::string() : std::string(*found);
}
