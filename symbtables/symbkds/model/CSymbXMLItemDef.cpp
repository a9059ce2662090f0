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
    switch (typeCode) {
    case kBoolCode:
    case 0x04290148: // EBOOL
    case 0x0A590148: // INT
    case 0x22590148: // UINT
    case 0x00A90148: // WORD
        return true;
    default:
        return false;
    }
}
