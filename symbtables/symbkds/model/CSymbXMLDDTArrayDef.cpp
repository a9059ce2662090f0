#include "symbkds/model/CSymbXMLDDTArrayDef.h"

#include "symbkds/model/ElementaryTypes.h"
#include "symbkds/model/MAPOFDDTDEF.h"
#include "symbkds/model/TypeCodes.h"

namespace {

constexpr std::string_view kGeneratedPrefix = "%TEMP_ARRAY";

} // namespace

CSymbXMLDDTArrayDef::CSymbXMLDDTArrayDef() : typeCode(kUnclassifiedCode) {}

CSymbXMLDDTArrayDef::CSymbXMLDDTArrayDef(const CString& declarationText)
    : CSymbXMLDDTArrayDef(declarationText, ArrayDeclaration(declarationText))
{}

CSymbXMLDDTArrayDef::CSymbXMLDDTArrayDef(const CString& typeName, const ArrayDeclaration& declaration)
    : CSymbXMLDDTArrayDef()
{
    name = typeName;
    dimensionCount = declaration.dimensionCount;
    bounds = declaration.bounds;
    SetElementTypeName(declaration.elementTypeName);
}

bool CSymbXMLDDTArrayDef::IsArrayOf(std::uint32_t elementCode, MAPOFDDTDEF* types)
{
    const std::uint32_t innermost = InnermostElementCode(types);
    return innermost != kUnclassifiedCode && innermost == elementCode;
}

std::uint32_t CSymbXMLDDTArrayDef::InnermostElementCode(MAPOFDDTDEF* types)
{
    if (innermostRevision != types->GetRevision()) {
        innermostCode = WalkToInnermostCode(types);
        innermostRevision = types->GetRevision(); // the walk may have registered arrays
    }
    return innermostCode;
}

std::uint32_t CSymbXMLDDTArrayDef::WalkToInnermostCode(MAPOFDDTDEF* types)
{
    CSymbXMLDDTArrayDef* array = this;
    for (int link = 0; link < kMaxChain; ++link) {
        const std::uint32_t innermost = ElementaryCodeOf(array->elementTypeName);
        if (innermost != kUnclassifiedCode)
            return innermost;
        CSymbXMLDDTDef* element = nullptr;
        types->FindTypeDef(array->elementTypeName, element);
        array = AsArray(element);
        if (!array)
            return kUnclassifiedCode;
    }
    return kUnclassifiedCode;
}

void CSymbXMLDDTArrayDef::SetTypeFromElementCode(std::uint32_t elementCode)
{
    const ElementaryType* element = FindElementaryTypeByCode(elementCode);
    if (element && element->arrayCode != 0) {
        typeCode = element->arrayCode;
        elementVarType = element->arrayVarType;
    } else if (!HasArrayFlags(elementCode)) {
        typeCode = kStructuredCode;
        elementVarType = static_cast<VARTYPE>(VT_ARRAY | VT_UI1);
    } else {
        // An array of arrays: what counts is the innermost element.
        SetTypeFromElementCode(ElementCodeOf(elementCode));
    }
}

void CSymbXMLDDTArrayDef::SetElementTypeName(const CString& newElementTypeName)
{
    elementTypeName = newElementTypeName;
    innermostRevision = kNoRevision;
    const ElementaryType* element = FindElementaryType(newElementTypeName.View(), NameCase::Ignored);
    typeCode = element ? element->definitionCode : kUnclassifiedCode;
    elementVarType = element ? element->varType : static_cast<VARTYPE>(VT_EMPTY);
}

bool CSymbXMLDDTArrayDef::IsAnonymous() const
{
    return name.View().starts_with(kGeneratedPrefix);
}

void CSymbXMLDDTArrayDef::SetDisplayText(const CSymbXMLDDTArrayDef& array, int step)
{
    const auto boundsOf = [&array](int dimension) { return array.bounds[static_cast<std::size_t>(dimension)]; };
    const int last = array.dimensionCount - 1;
    displayText = "ARRAY[";
    for (int dimension = last - step; dimension < last; ++dimension)
        displayText.AppendFormat("%i..%i,", boundsOf(dimension).lower, boundsOf(dimension).upper);
    displayText.AppendFormat("%i..%i] OF ", boundsOf(last).lower, boundsOf(last).upper);
    displayText += array.elementTypeName;
}

std::unique_ptr<CSymbXMLDDTArrayDef> CSymbXMLDDTArrayDef::CloneArrayDef() const
{
    auto clone = std::make_unique<CSymbXMLDDTArrayDef>();
    clone->bounds = bounds;
    clone->reservedNumber = reservedNumber;
    clone->dimensionCount = dimensionCount;
    clone->displayText = displayText;
    clone->name = name;
    clone->elementTypeName = elementTypeName;
    clone->elementVarType = elementVarType;
    return clone;
}
