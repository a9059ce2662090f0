#include "symbhost/exports/Place.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace {

constexpr unsigned kBitsPerByte = 8;
constexpr unsigned kHighestBit = 15; // of a word

// Reads decimal digits at the start of `text` and takes them off.
template <class Number>
bool TakeNumber(std::string_view& text, Number& number)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc())
        return false;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return true;
}

bool TakeMark(std::string_view& text, char mark)
{
    if (!text.starts_with(mark))
        return false;
    text.remove_prefix(1);
    return true;
}

// Whether the row is a bit of the word at its offset, and not of an export's number that no word has.
bool IsBitOfWord(const RowFacts& row)
{
    return row.isBit && !row.isBranch && row.bit <= kHighestBit;
}

} // namespace

Place Place::OfBytes(WORD block, std::uint64_t first, std::uint64_t last)
{
    return {block, first * kBitsPerByte, last * kBitsPerByte + kBitsPerByte - 1};
}

std::optional<Place> PlaceOf(const RowFacts& row)
{
    if (row.known == Row::Known::Nothing || (row.block == 0 && row.offset == 0 && row.size == 0))
        return std::nullopt;
    const std::uint64_t from = std::uint64_t{row.offset} + row.relativeOffset;
    if (IsBitOfWord(row)) {
        const std::uint64_t bit = from * kBitsPerByte + row.bit;
        return Place{row.block, bit, bit};
    }
    return Place::OfBytes(row.block, from, from + std::max<std::uint64_t>(row.size, 1) - 1);
}

std::string PlaceText(const RowFacts& row)
{
    const std::uint64_t from = std::uint64_t{row.offset} + row.relativeOffset;
    const std::string text = std::to_string(row.block) + ":" + std::to_string(from);
    return IsBitOfWord(row) ? text + "." + std::to_string(row.bit) : text;
}

std::optional<Place> ReadPlace(std::string_view text)
{
    WORD block = 0;
    DWORD offset = 0;
    if (!TakeNumber(text, block) || !TakeMark(text, ':') || !TakeNumber(text, offset))
        return std::nullopt;
    if (TakeMark(text, '.')) {
        unsigned bit = 0;
        if (!TakeNumber(text, bit) || bit > kHighestBit || !text.empty())
            return std::nullopt;
        const std::uint64_t asked = std::uint64_t{offset} * kBitsPerByte + bit;
        return Place{block, asked, asked};
    }
    DWORD end = offset;
    if (TakeMark(text, '-') && !TakeNumber(text, end))
        return std::nullopt;
    return text.empty() && end >= offset ? std::optional(Place::OfBytes(block, offset, end)) : std::nullopt;
}
