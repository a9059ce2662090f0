#include "symbkds/resolve/MemberResolution.h"

#include "symbkds/model/CSymbXMLDDTArrayDef.h"
#include "symbkds/model/ElementaryTypes.h"
#include "symbkds/model/MAPOFDDTDEF.h"

namespace {

// A path that ends on a part of a multi-dimensional member has the size and
// code of that whole part, if the part is an array of an elementary type.
void CorrectArraySize(const CSymbXMLDDTDef& memberDefinition, const CString& resolvedTypeName, MAPOFDDTDEF* types,
                      AddressDescriptor& descriptor)
{
    CSymbXMLDDTDef* resolved = nullptr;
    types->FindTypeDef(resolvedTypeName, resolved);
    CSymbXMLDDTArrayDef* const array = AsArray(resolved);
    if (!memberDefinition.IsArray() || !array)
        return;
    const std::uint32_t count = array->FirstBounds().ElementCount();
    std::uint32_t elementSize = 0;
    std::uint32_t elementCode = 0;
    if (count == 0 || !ClassifyElementaryType(array->elementTypeName, elementSize, elementCode))
        return;
    descriptor.size = elementSize * count;
    descriptor.typeCode = array->typeCode;
}

} // namespace

CSymbXMLDDTMember* FindMember(const CMemberList& members, const CSymbKorvaAnalyser& path, int level)
{
    CString name;
    return path.GetItemName(level, name) ? members.Find(name) : nullptr;
}

void MoveInto(AddressDescriptor& descriptor, bool located, std::uint32_t offsetBytes, std::uint32_t sizeBytes)
{
    if (located) {
        descriptor.offset += offsetBytes;
        return;
    }
    descriptor.relativeOffset += offsetBytes;
    descriptor.relativeSize = static_cast<WORD>(sizeBytes);
}

CString UnlocatedAddress(const CString& typeName, const AddressDescriptor& descriptor)
{
    CString text;
    text.Format("U-%s (B:%u - O:%u) ", static_cast<LPCSTR>(typeName), unsigned{descriptor.block},
                static_cast<unsigned>(descriptor.offset));
    return text;
}

void DescribeMember(const CSymbXMLDDTMember& member, std::uint32_t typeCode, AddressDescriptor& descriptor,
                    ResolvedTexts texts)
{
    descriptor.typeCode = typeCode;
    texts.typeName = member.typeName;
    texts.comment = member.comment;
    texts.address = UnlocatedAddress(member.typeName, descriptor);
}

bool ResolveBelowMember(const CSymbXMLDDTMember& member, MAPOFDDTDEF* types, const CSymbKorvaAnalyser& path, int level,
                        bool located, AddressDescriptor& descriptor, ResolvedTexts texts)
{
    CSymbXMLDDTDef* definition = nullptr;
    if (!types->FindTypeDef(member.typeName, definition))
        return false;
    const bool resolved = definition->ResolvePath(types, path, level + 1, located, descriptor, texts.typeName,
                                                  texts.comment, texts.address);
    CorrectArraySize(*definition, texts.typeName, types, descriptor);
    return resolved;
}

bool FindDefinitionAmongMembers(CSymbXMLDDTDef& self, const CMemberList& members, const CSymbKorvaAnalyser& path,
                                int level, MAPOFDDTDEF* types, CSymbXMLDDTDef*& found, std::uint16_t& block,
                                std::uint32_t& offset, std::uint32_t& size)
{
    if (level > path.GetLastIndex()) {
        found = &self;
        return true;
    }
    CSymbXMLDDTMember* member = FindMember(members, path, level);
    CSymbXMLDDTDef* definition = nullptr;
    if (!member || IsElementary(member->typeName) || !types->FindTypeDef(member->typeName, definition))
        return false;
    block = static_cast<std::uint16_t>(block + member->block);
    offset += member->offset;
    size = member->size;
    return definition->FindDefinitionAtPath(path, level + 1, types, found, block, offset, size);
}
