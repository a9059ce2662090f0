#pragma once

#include <cstddef>
#include <string_view>

// A place in a text, from 1; 0: not known.
struct TextPosition
{
    std::size_t line = 0;
    std::size_t column = 0; // in characters
};

// Where the byte at `offset` of a UTF-8 text stands; behind the last one when it lies there. A byte order mark does not
// count; lines end with CR, LF or both.
TextPosition PositionAt(std::string_view utf8, std::size_t offset);
