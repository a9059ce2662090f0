#include "symbhost/exports/RegisteredType.h"

#include "symbkds/model/ExportWords.h"

#include <algorithm>

bool IsRegistered(const ExportType& type)
{
    switch (type.kind) {
    case ExportType::Kind::FunctionBlock:
        return true;
    case ExportType::Kind::Array: {
        const ArrayDeclaration declaration(type.declaration.c_str());
        return declaration.dimensionCount > 0 && !declaration.tooManyDimensions;
    }
    case ExportType::Kind::Structure:
        break;
    }
    const auto hasMembers = [](const ExportSection& section) { return !section.members.empty(); };
    return type.name == kEmptyStructure || std::ranges::any_of(type.sections, hasMembers);
}

std::string ArrayProblem(const ArrayDeclaration& declaration)
{
    if (declaration.tooManyDimensions)
        return "has more than " + std::to_string(ArrayDeclaration::kMaxDimensions) + " dimensions";
    if (declaration.dimensionCount == 0)
        return "has no readable range";
    for (int dimension = 0; dimension < declaration.dimensionCount; ++dimension) {
        const ArrayBounds& bounds = declaration.bounds[static_cast<std::size_t>(dimension)];
        if (bounds.ElementCount() == 0)
            return "has the range " + std::to_string(bounds.lower) + ".." + std::to_string(bounds.upper) + ", " +
                   (bounds.lower > bounds.upper ? "which is empty" : "which is too long");
    }
    return {};
}
