// Cases that share an answer are written as one text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// The parts of a text: "A|B" gives "A" and "B", an empty text one empty part.
inline std::vector<std::string> Split(std::string_view text, std::string_view separator = "|")
{
    std::vector<std::string> parts;
    for (std::size_t end; (end = text.find(separator)) != text.npos; text.remove_prefix(end + separator.size()))
        parts.emplace_back(text.substr(0, end));
    parts.emplace_back(text);
    return parts;
}
