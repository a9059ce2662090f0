#include "symbhost/exports/RegisteredType.h"

#include "symbkds/model/ImportRules.h"

#include <algorithm>

bool IsRegistered(const ExportType& type)
{
    const auto hasMembers = [](const ExportSection& section) { return !section.members.empty(); };
    switch (type.kind) {
    case ExportType::Kind::Array:
        return ArrayDeclaration(type.declaration.c_str()).MakesType();
    case ExportType::Kind::Structure:
        return IsStructureKept(type.name, std::ranges::any_of(type.sections, hasMembers));
    case ExportType::Kind::FunctionBlock:
        break;
    }
    return true;
}

std::string ArrayProblem(const ArrayDeclaration& declaration)
{
    if (declaration.tooManyDimensions)
        return "has more than " + std::to_string(ArrayDeclaration::kMaxDimensions) + " dimensions";
    for (int dimension = 0; dimension < declaration.dimensionCount; ++dimension) {
        const ArrayBounds& bounds = declaration.bounds[static_cast<std::size_t>(dimension)];
        if (bounds.ElementCount() == 0)
            return "has the range " + std::to_string(bounds.lower) + ".." + std::to_string(bounds.upper) + ", " +
                   (bounds.lower > bounds.upper ? "which is empty" : "which is too long");
    }
    return {};
}
