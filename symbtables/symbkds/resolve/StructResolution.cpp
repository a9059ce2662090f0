#include "symbkds/model/CSymbXMLDDTStructDef.h"
#include "symbkds/model/ImportRules.h"
#include "symbkds/resolve/MemberResolution.h"

bool CSymbXMLDDTStructDef::ResolvePath(MAPOFDDTDEF* types, const CSymbKorvaAnalyser& path, int level, bool located,
                                       AddressDescriptor& descriptor, CString& typeName, CString& comment,
                                       CString& address)
{
    CSymbXMLDDTMember* member = FindMember(members, path, level);
    if (!member)
        return false;
    const ResolvedTexts texts{typeName, comment, address};
    // The member's block is not added: a located structure lies in one block.
    MoveInto(descriptor, located, member->offset, member->size);
    descriptor.size = member->size;
    std::uint32_t elementarySize = 0;
    std::uint32_t elementaryCode = 0;
    if (ClassifyElementaryType(member->typeName, elementarySize, elementaryCode)) {
        descriptor.size = ElementaryMemberSize(MemberOf::Structure, member->size, elementarySize);
        if (!located)
            descriptor.relativeSize = static_cast<WORD>(descriptor.size);
        DescribeMember(*member, elementaryCode, descriptor, texts);
        return level == path.GetLastIndex();
    }
    if (level < path.GetLastIndex())
        return ResolveBelowMember(*member, types, path, level, located, descriptor, texts);
    DescribeMember(*member, member->typeCode, descriptor, texts);
    return true;
}

bool CSymbXMLDDTStructDef::FindDefinitionAtPath(const CSymbKorvaAnalyser& path, int level, MAPOFDDTDEF* types,
                                                CSymbXMLDDTDef*& found, std::uint16_t& block, std::uint32_t& offset,
                                                std::uint32_t& size)
{
    return FindDefinitionAmongMembers(*this, members, path, level, types, found, block, offset, size);
}
