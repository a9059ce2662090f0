#pragma once

#include "platform/mfc/CString.h"

#include <array>
#include <cstdint>

// The bounds of one dimension, both inclusive, as the export writes them: the lower may be above the upper.
struct ArrayBounds
{
    std::int32_t lower = 0;
    std::int32_t upper = 0;

    // Number of elements; 0 when the bounds are reversed or 32 bits do not hold it.
    std::uint32_t ElementCount() const;
};

// What an array declaration such as ARRAY[1..2,0..3] OF REAL says.
//
// After the first "[" stand dimensions separated by ","; blanks are allowed in
// front of a number, nowhere else. Behind the first " OF " (any case) stands the
// element type. Reading stops at the first text that does not fit; what was read counts.
struct ArrayDeclaration
{
    static constexpr int kMaxDimensions = 10;

    CString elementTypeName; // as written; empty without " OF "
    std::array<ArrayBounds, kMaxDimensions> bounds;
    int dimensionCount = 0;
    bool tooManyDimensions = false; // more than kMaxDimensions; the declaration must be refused

    // Whether a type may be declared like this.
    bool MakesType() const { return dimensionCount > 0 && !tooManyDimensions; }
    // Whether a value may be of this type without a declaration: then no range at all means the one element 0.
    bool MakesValue() const { return !tooManyDimensions; }

    explicit ArrayDeclaration(const CString& text);
    // One dimension of elements of that type.
    ArrayDeclaration(const ArrayBounds& dimension, const CString& elementType);
};
