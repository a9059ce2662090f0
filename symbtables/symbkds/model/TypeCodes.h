// Type codes: what kind of value a variable, member or element holds.
//
// The high half of an elementary or array code identifies the elementary type,
// the low half holds flags of the kind.
#pragma once

#include <cstdint>

constexpr std::uint32_t kUnclassifiedCode = 0x00000002;
// A structure, a function block, or an array whose innermost elements have no array code.
constexpr std::uint32_t kStructuredCode = 0x00000208;
// The elementary types that a plain name serves.
constexpr std::uint32_t kBoolCode = 0x02290148;
constexpr std::uint32_t kEBoolCode = 0x04290148;
constexpr std::uint32_t kIntCode = 0x0A590148;
constexpr std::uint32_t kUIntCode = 0x22590148;
constexpr std::uint32_t kWordCode = 0x00A90148;

// Flags by which an array code differs from the code of its elements.
constexpr std::uint32_t kArrayFlags = 0x1080;
constexpr std::uint32_t kElementFlags = 0x0140;

constexpr std::uint32_t ElementCodeOf(std::uint32_t arrayCode)
{
    return (arrayCode & ~kArrayFlags) | kElementFlags;
}

// Whether a code has the flags that every array code has.
constexpr bool HasArrayFlags(std::uint32_t code)
{
    constexpr std::uint32_t kBoth = 0x0080 | 0x0008;
    return (code & kBoth) == kBoth;
}

// Whether a code is that of BOOL, EBOOL, INT, UINT or WORD: the types that a plain name serves.
constexpr bool IsBitOrWordCode(std::uint32_t code)
{
    switch (code) {
    case kBoolCode:
    case kEBoolCode:
    case kIntCode:
    case kUIntCode:
    case kWordCode:
        return true;
    default:
        return false;
    }
}
