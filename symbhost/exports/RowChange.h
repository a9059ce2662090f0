// How two rows of one symbol differ.
#pragma once

#include "symbhost/exports/Row.h"

#include <optional>
#include <vector>

// Bits of a set.
enum Change : unsigned
{
    kAdded = 1U << 0U,
    kRemoved = 1U << 1U,
    kMoved = 1U << 2U,
    kResized = 1U << 3U,
    kRetyped = 1U << 4U,
    kAccess = 1U << 5U,
    kText = 1U << 6U,
    kServed = 1U << 7U,
    kUnserved = 1U << 8U
};

// Whether two names are the same in any case.
bool IsSameName(std::string_view a, std::string_view b);

// What differs; what is not known of one of them does not.
unsigned ChangesBetween(const Row& before, const Row& after);

// The words for a set of changes, in the order of the bits.
std::vector<std::string> ChangeWords(unsigned changes);
// The change that a word stands for.
std::optional<Change> ChangeOf(std::string_view word);

// The changes of a symbol that is in both, for people: 5:200 -> 5:300, INT -> DINT
std::string ChangeText(const Row& before, const Row& after, unsigned changes);
