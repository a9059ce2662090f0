#include "symbhost/exports/TypeMeaning.h"

#include "symbhost/exports/RegisteredType.h"
#include "symbkds/model/ExportWords.h"

namespace {

constexpr int kLongestChain = 64; // of arrays of arrays, which may be a ring

bool TakeElementary(const std::string& name, TypeMeaning& meaning)
{
    meaning.elementary = FindElementaryType(name, NameCase::Ignored);
    if (!meaning.elementary)
        return false;
    CString text(name.c_str());
    std::uint32_t typeCode = 0;
    ClassifyElementaryType(text, meaning.elementarySize, typeCode);
    return true;
}

void CountElements(const ArrayDeclaration& declaration, TypeMeaning& meaning)
{
    meaning.isArray = true;
    for (int dimension = 0; dimension < declaration.dimensionCount; ++dimension) {
        const std::uint64_t count = declaration.bounds[static_cast<std::size_t>(dimension)].ElementCount();
        const bool isTooMuch = meaning.elements != 0 && count > TypeMeaning::kMostElements / meaning.elements;
        meaning.elements = isTooMuch ? TypeMeaning::kMostElements : meaning.elements * count;
    }
}

} // namespace

TypeMeaning MeaningOf(const CExportFile& file, const std::string& typeName)
{
    TypeMeaning meaning;
    std::string name = typeName;
    for (int step = 0; step < kLongestChain && !TakeElementary(name, meaning); ++step) {
        const ExportType* type = file.FindType(name);
        if (type && !IsRegistered(*type))
            type = nullptr;
        if (!meaning.firstDeclared)
            meaning.firstDeclared = type;
        if (type && type->kind != ExportType::Kind::Array) {
            meaning.holder = type;
            break;
        }
        const bool isInPlace = !meaning.firstDeclared;
        if (!type && !IsArrayDeclaration(name)) {
            if (isInPlace)
                meaning.unknownType = name;
            break;
        }
        const ArrayDeclaration declaration(type ? type->declaration.c_str() : name.c_str());
        if (isInPlace && meaning.arrayProblem.empty())
            meaning.arrayProblem = ArrayProblem(declaration);
        if (!declaration.MakesValue())
            return meaning;
        meaning.isFound = true;
        CountElements(declaration, meaning);
        name = static_cast<LPCSTR>(declaration.elementTypeName);
    }
    meaning.isFound = meaning.isFound || meaning.firstDeclared || (meaning.elementary && !meaning.isArray);
    return meaning;
}
