#include "symbkds/import/MemberReader.h"

MemberRead ReadMember(WalkElement& element, const ImportKeys& keys, MAPOFDDTDEF& types)
{
    MemberRead read{std::make_unique<CSymbXMLDDTMember>()};
    CSymbXMLDDTMember& member = *read.member;
    member.name = ReadAttribute(element, keys.name);
    member.SetTypeName(ReadAttribute(element, keys.typeName), &types);
    member.comment = ReadChildText(element, keys.comment);

    const auto readProperty = [&](const CBstr& key) {
        PropertyRead property = ReadProperty(element, keys, key);
        read.allSelected = read.allSelected && property.hasList;
        return property;
    };
    member.block = static_cast<std::uint16_t>(readProperty(keys.areaBlock).Number(0));
    member.offset = static_cast<std::uint32_t>(readProperty(keys.areaOffset).Number(0));
    member.size = static_cast<std::uint32_t>(readProperty(keys.size).Number(0));
    const PropertyRead rights = readProperty(keys.requestAccessRight);
    member.accessRights = rights.hasElement ? AccessRightsFrom(rights.Number(0)) : kReadWrite;

    const PropertyRead hidden = ReadProperty(element, keys, keys.isVariableHidden);
    read.hiddenResult = hidden.result;
    member.hidden = hidden.result == S_OK && hidden.Number(0) != 0 ? 1 : 0;
    return read;
}
