#include "symbkds/model/CSymbXMLItemDef.h"

#include "symbkds/model/TypeClassifier.h"
#include "symbkds/model/TypeCodes.h"

CSymbXMLItemDef::CSymbXMLItemDef() : typeCode(kUnclassifiedCode) {}

CSymbXMLItemDef::~CSymbXMLItemDef() = default;

void CSymbXMLItemDef::SetTypeName(const CString& newTypeName, MAPOFDDTDEF* types)
{
    typeName = newTypeName;
    const ValueType type = ClassifyValueType(newTypeName, *types, kVariableRules);
    typeCode = type.typeCode;
    varType = type.varType;
}

bool CSymbXMLItemDef::IsElementaryScalar() const
{
    constexpr std::uint32_t kArrayBit = 0x0080;
    return typeCode != kUnclassifiedCode && typeCode != kStructuredCode && (typeCode & kArrayBit) == 0;
}

bool CSymbXMLItemDef::IsBitOrWordType() const
{
    return IsBitOrWordCode(typeCode);
}
