// What the name of a type stands for in an export.
#pragma once

#include "symbhost/exports/CExportFile.h"
#include "symbkds/model/ElementaryTypes.h"

#include <cstdint>
#include <optional>
#include <string>

// Arrays, declared in place or by name, are followed down to what is no array.
struct TypeMeaning
{
    const ElementaryType* elementary = nullptr; // of the innermost elements, or of the value itself
    std::uint32_t elementarySize = 0;           // bytes of one
    const ExportType* holder = nullptr;         // the structure or function block instead
    const ExportType* firstDeclared = nullptr;  // the declared type that is met first, an array perhaps
    std::uint64_t elements = 1;                 // of all dimensions; 0: one has none; at most kMostElements
    bool isArray = false;
    bool isFound = false;                   // a host gets a value of this type
    std::string arrayProblem;               // of an array declared in place: why no element resolves
    std::optional<std::string> unknownType; // named in place and unknown; empty when the name is missing

    static constexpr std::uint64_t kMostElements = std::uint64_t{1} << 40U;
};

TypeMeaning MeaningOf(const CExportFile& file, const std::string& typeName);
