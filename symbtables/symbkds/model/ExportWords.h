// Words of an export that mean something of their own.
#pragma once

#include "platform/mfc/UpperCase.h"

#include <algorithm>
#include <string_view>

// Whether `text` begins with `upperStart`, in any case.
constexpr bool StartsInAnyCase(std::string_view text, std::string_view upperStart)
{
    return std::ranges::equal(text.substr(0, upperStart.size()), upperStart, {}, Upper);
}

// Whether a type name that nothing declares is a declaration itself.
constexpr bool IsArrayDeclaration(std::string_view typeName)
{
    return StartsInAnyCase(typeName, "ARRAY");
}

// Whether a child element of a function block holds parameters or variables.
constexpr bool IsFunctionBlockSection(std::string_view tag)
{
    constexpr std::string_view kTags[] = {"INPUTPARAMETERS", "INOUTPARAMETERS", "OUTPUTPARAMETERS",
                                          "PRIVATELOCALVARIABLES", "PUBLICLOCALVARIABLES"};
    return std::ranges::any_of(
        kTags, [tag](std::string_view known) { return tag.size() == known.size() && StartsInAnyCase(tag, known); });
}
