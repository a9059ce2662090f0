// Where a value lies, and what a user may ask for instead.
#pragma once

#include "symbhost/exports/Row.h"

#include <optional>
#include <string>

// The bits from `first` to `last`, counted from the start of the block; of whole bytes as a rule.
struct Place
{
    WORD block = 0;
    std::uint64_t first = 0;
    std::uint64_t last = 0;

    static Place OfBytes(WORD block, std::uint64_t first, std::uint64_t last);
    std::uint64_t FirstByte() const { return first / 8; }
    std::uint64_t LastByte() const { return last / 8; }
    std::uint64_t Bits() const { return last - first + 1; }
    bool IsBit() const { return first == last; }
};

// What has no size touches its first byte. Nothing for what has neither block nor offset nor size.
std::optional<Place> PlaceOf(const RowFacts& row);

// BLOCK:OFFSET, with the bit of the word behind it where it is one.
std::string PlaceText(const RowFacts& row);

// BLOCK:OFFSET, BLOCK:OFFSET-END or BLOCK:OFFSET.BIT, where a bit of an odd offset belongs to the byte before.
std::optional<Place> ReadPlace(std::string_view text);
