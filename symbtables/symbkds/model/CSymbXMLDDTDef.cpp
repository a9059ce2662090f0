#include "symbkds/model/CSymbXMLDDTDef.h"

#include "symbkds/model/TypeCodes.h"

CSymbXMLDDTDef::~CSymbXMLDDTDef() = default;

std::uint32_t CSymbXMLDDTDef::GetTypeCode() const
{
    return kStructuredCode;
}
