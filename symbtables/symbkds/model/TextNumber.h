// Decimal numbers inside texts, read alike on every system.
#pragma once

#include <cstdint>
#include <limits>

constexpr bool IsBlank(char16_t c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

// Reads leading blanks, an optional sign and decimal digits at `text` and
// leaves `text` behind them. False, with `text` anywhere, when there is no digit.
// Values beyond 32 bits become the nearest limit. `Char` is a narrow or 16-bit unit.
template <class Char>
constexpr bool ReadNumber(const Char*& text, std::int32_t& number)
{
    constexpr std::int64_t kBeyond = std::int64_t{1} << 32;
    while (IsBlank(static_cast<char16_t>(*text)))
        ++text;
    const bool negative = *text == Char{'-'};
    if (negative || *text == Char{'+'})
        ++text;
    if (*text < Char{'0'} || *text > Char{'9'})
        return false;
    std::int64_t value = 0;
    for (; *text >= Char{'0'} && *text <= Char{'9'}; ++text)
        if (value < kBeyond)
            value = value * 10 + (*text - Char{'0'});
    if (negative)
        value = -value;
    constexpr std::int64_t kLow = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t kHigh = std::numeric_limits<std::int32_t>::max();
    number = static_cast<std::int32_t>(value < kLow ? kLow : value > kHigh ? kHigh : value);
    return true;
}

// The number at the start of a text; 0 for null and for a text without one.
template <class Char>
constexpr std::int32_t ParseNumber(const Char* text)
{
    std::int32_t number = 0;
    return text && ReadNumber(text, number) ? number : 0;
}
