#include "symbkds/model/CSymbXMLDFBDef.h"
#include "symbkds/model/ImportRules.h"
#include "symbkds/resolve/MemberResolution.h"

bool CSymbXMLDFBDef::ResolvePath(MAPOFDDTDEF* types, const CSymbKorvaAnalyser& path, int level, bool located,
                                 AddressDescriptor& descriptor, CString& typeName, CString& comment, CString& address)
{
    CSymbXMLDDTMember* parameter = FindMember(members, path, level);
    if (!parameter)
        return false;
    const ResolvedTexts texts{typeName, comment, address};
    MoveInto(descriptor, located, parameter->offset, parameter->size);
    descriptor.size = parameter->size;
    const bool byReference = parameter->indirectionKind == CSymbXMLDDTMember::kPassedByReference;
    descriptor.indirection = byReference ? AddressDescriptor::kByReference : AddressDescriptor::kDirect;
    if (byReference)
        descriptor.relativeSize = static_cast<WORD>(parameter->size);

    std::uint32_t elementarySize = 0;
    std::uint32_t elementaryCode = 0;
    if (ClassifyElementaryType(parameter->typeName, elementarySize, elementaryCode)) {
        descriptor.size = ElementaryMemberSize(MemberOf::FunctionBlock, parameter->size, elementarySize);
        DescribeMember(*parameter, elementaryCode, descriptor, texts);
        return located && level == path.GetLastIndex();
    }
    if (level < path.GetLastIndex())
        return ResolveBelowMember(*parameter, types, path, level,
                                  parameter->indirectionKind == CSymbXMLDDTMember::kPassedByValue, descriptor, texts);
    DescribeMember(*parameter, parameter->typeCode, descriptor, texts);
    // A path may go through an unlocated function block, but not end in one.
    return located;
}

bool CSymbXMLDFBDef::FindDefinitionAtPath(const CSymbKorvaAnalyser& path, int level, MAPOFDDTDEF* types,
                                          CSymbXMLDDTDef*& found, std::uint16_t& block, std::uint32_t& offset,
                                          std::uint32_t& size)
{
    return FindDefinitionAmongMembers(*this, members, path, level, types, found, block, offset, size);
}
