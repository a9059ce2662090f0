#include "symbkds/model/CSymbXMLDDTMember.h"

#include "symbkds/model/TypeClassifier.h"
#include "symbkds/model/TypeCodes.h"

CSymbXMLDDTMember::CSymbXMLDDTMember() : typeCode(kUnclassifiedCode) {}

CSymbXMLDDTMember::~CSymbXMLDDTMember() = default;

void CSymbXMLDDTMember::SetTypeName(const CString& newTypeName, MAPOFDDTDEF* types)
{
    typeName = newTypeName;
    // The classifier gets the stored copy: `newTypeName` may be that very field.
    const ValueType type = ClassifyValueType(typeName, *types, kMemberRules);
    typeCode = type.typeCode;
    varType = type.varType;
}
