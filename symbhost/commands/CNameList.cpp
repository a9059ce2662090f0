#include "symbhost/commands/CNameList.h"

#include "symbhost/Failure.h"
#include "symbhost/Text.h"

namespace {

// A path of 16 steps with names of 1023 bytes fits.
constexpr std::size_t kLongestLine = 65536;

} // namespace

CNameList::CNameList(const std::vector<std::string>& given, std::istream& lines) : arguments(given), input(lines) {}

std::optional<std::string> CNameList::Next()
{
    for (; position < arguments.size(); ++position) {
        if (arguments[position] != "-")
            return Utf8FromArgument(arguments[position++]);
        if (std::optional<std::string> line = NextLine())
            return line; // "-" stays the current argument until its input ends
    }
    return std::nullopt;
}

std::optional<std::string> CNameList::NextLine()
{
    std::string line;
    for (char next = 0; input.get(next);) {
        if (next != '\n' && next != '\r')
            line += next;
        else if (!line.empty())
            return line;
        if (line.size() > kLongestLine)
            throw CHostError("a line of the standard input is too long for a name");
    }
    return line.empty() ? std::nullopt : std::optional(line);
}
