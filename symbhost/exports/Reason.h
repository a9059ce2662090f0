// Why a host does not get a symbol.
#pragma once

#include <cstddef>
#include <cstdint>

// In the order in which they are looked for: the first that applies counts.
enum class Reason : std::uint8_t
{
    None, // the symbol is served
    NotAPath,
    UnreachableName,
    NotInExport,
    UnknownType,
    NotAValue,
    TypeNotServed,
    NoAddress,
    NoBit,
    NothingBelow,
    UnusableArray,
    IndexOutside,
    RemovedBlock,
    NestedBlock,
    NoMember
};

// The code that scripts rely on; empty for None.
constexpr const char* ReasonCode(Reason reason)
{
    constexpr const char* kCodes[] = {"",
                                      "not-a-path",
                                      "unreachable-name",
                                      "not-in-export",
                                      "unknown-type",
                                      "not-a-value",
                                      "type-not-served",
                                      "no-address",
                                      "no-bit",
                                      "nothing-below",
                                      "unusable-array",
                                      "index-outside",
                                      "removed-block",
                                      "nested-block",
                                      "no-member"};
    return kCodes[static_cast<std::size_t>(reason)];
}
