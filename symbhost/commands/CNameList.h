#pragma once

#include <istream>
#include <optional>
#include <string>
#include <vector>

// The names to resolve, one after the other: those of the command line and, in
// place of "-", the lines of `lines` without their ends and without empty ones.
class CNameList
{
public:
    CNameList(const std::vector<std::string>& given, std::istream& lines);

    // Nothing at the end. Raises CHostError at a line that is too long to be a name.
    std::optional<std::string> Next();

private:
    std::optional<std::string> NextLine();

    const std::vector<std::string>& arguments;
    std::istream& input;
    std::size_t position = 0;
};
