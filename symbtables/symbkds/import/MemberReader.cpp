#include "symbkds/import/MemberReader.h"

#include "symbkds/model/AccessRights.h"

namespace {

// Fills in comment, placement and access rights. False when one of the selections delivered no list.
bool ReadPlacement(WalkElement& element, const ExportKeys& keys, PropertyRules rules, CSymbXMLDDTMember& member)
{
    bool allSelected = true;
    const auto readProperty = [&](const CBstr& key) {
        PropertyRead property = ReadProperty(element, keys, key, rules);
        allSelected = allSelected && property.hasList;
        return property;
    };
    member.comment = ReadChildText(element, keys.comment);
    member.block = static_cast<std::uint16_t>(readProperty(keys.areaBlock).Number(0));
    member.offset = static_cast<std::uint32_t>(readProperty(keys.areaOffset).Number(0));
    member.size = static_cast<std::uint32_t>(readProperty(keys.size).Number(0));
    const PropertyRead rights = readProperty(keys.requestAccessRight);
    member.accessRights = rights.hasElement ? AccessRightsFrom(rights.Number(0)) : kReadWrite;
    return allSelected;
}

} // namespace

std::unique_ptr<CSymbXMLDDTMember> ReadStructureMember(WalkElement& element, const ExportKeys& keys, MAPOFDDTDEF& types)
{
    auto member = std::make_unique<CSymbXMLDDTMember>();
    member->name = ReadAttribute(element, keys.name);
    const CString typeName = ReadAttribute(element, keys.typeName);
    ReadPlacement(element, keys, {}, *member);
    member->hidden = ReadProperty(element, keys, keys.isVariableHidden).Number(0) != 0 ? 1 : 0;
    member->SetTypeName(typeName, &types);
    return member;
}

ParameterRead ReadParameter(WalkElement& element, const ExportKeys& keys, MAPOFDDTDEF& types)
{
    constexpr PropertyRules kAnyList{.list = Counts::Delivered, .element = Counts::Delivered};
    ParameterRead read{std::make_unique<CSymbXMLDDTMember>()};
    CSymbXMLDDTMember& member = *read.member;
    member.name = ReadAttribute(element, keys.name);
    member.SetTypeName(ReadAttribute(element, keys.typeName), &types);
    read.allSelected = ReadPlacement(element, keys, kAnyList, member);
    const PropertyRead hidden = ReadProperty(element, keys, keys.isVariableHidden, kAnyList);
    read.hiddenResult = hidden.result;
    member.hidden = hidden.result == S_OK && hidden.Number(0) != 0 ? 1 : 0;
    return read;
}
