#include "symbkds/model/CSymbXMLDFBDef.h"
#include "symbkds/model/ElementaryTypes.h"
#include "symbkds/model/TypeCodes.h"
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

    const std::uint32_t elementaryCode = ElementaryCodeOf(parameter->typeName);
    if (elementaryCode != kUnclassifiedCode) { // its place is as wide as the export says
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
