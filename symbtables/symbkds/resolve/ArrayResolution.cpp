#include "symbkds/model/CSymbXMLDDTArrayDef.h"
#include "symbkds/model/ElementaryTypes.h"
#include "symbkds/model/MAPOFDDTDEF.h"
#include "symbkds/model/TextNumber.h"
#include "symbkds/model/TypeCodes.h"
#include "symbkds/resolve/MemberResolution.h"

namespace {

// Whether a path that designates an elementary element at `level` ends there: with the index itself, or with a
// bit number, which is a step of its own behind an index.
bool EndsOnElement(const CSymbKorvaAnalyser& path, int level)
{
    const CSymbKorvaAnalysedItem& last = path.GetLastItem();
    if (last.hasNumber && last.index == last.name)
        return level == path.GetLastIndex() - 1;
    return level == path.GetLastIndex() && last.name.IsEmpty();
}

} // namespace

bool CSymbXMLDDTArrayDef::ElementIndex(LPCSTR indexText, std::uint32_t& elementNumber) const
{
    const std::int32_t index = ParseNumber(indexText);
    if (index < FirstBounds().lower || index > FirstBounds().upper)
        return false;
    elementNumber = static_cast<std::uint32_t>(std::int64_t{index} - FirstBounds().lower);
    return true;
}

bool CSymbXMLDDTArrayDef::ResolvePath(MAPOFDDTDEF* types, const CSymbKorvaAnalyser& path, int level, bool located,
                                      AddressDescriptor& descriptor, CString& typeName, CString& comment,
                                      CString& address)
{
    const std::uint32_t count = FirstBounds().ElementCount();
    std::uint32_t elementNumber = 0;
    if (count == 0 || !ElementIndex(path.GetItem(level).index, elementNumber))
        return false;
    const std::uint32_t elementSize = descriptor.size / count;
    descriptor.size = elementSize;

    const std::uint32_t elementaryCode = ElementaryCodeOf(elementTypeName);
    if (elementaryCode != kUnclassifiedCode) {
        MoveInto(descriptor, located, elementNumber * elementSize, elementSize);
        descriptor.typeCode = elementaryCode;
        typeName = elementTypeName;
        comment.Empty();
        address = UnlocatedAddress(typeName, descriptor);
        return EndsOnElement(path, level);
    }
    CSymbXMLDDTDef* element = nullptr;
    if (!types->FindTypeDef(elementTypeName, element))
        return false;
    MoveInto(descriptor, located, elementNumber * elementSize, elementSize);
    if (level < path.GetLastIndex())
        return element->ResolvePath(types, path, level + 1, located, descriptor, typeName, comment, address);
    // An element has no comment of its own: hosts are shown the name of its type, unless that is a generated one.
    const CSymbXMLDDTArrayDef* const elementArray = AsArray(element);
    comment = elementArray && elementArray->IsAnonymous() ? CString() : elementTypeName;
    typeName = element->GetDisplayName();
    return true;
}

bool CSymbXMLDDTArrayDef::FindDefinitionAtPath(const CSymbKorvaAnalyser& path, int level, MAPOFDDTDEF* types,
                                               CSymbXMLDDTDef*& found, std::uint16_t& block, std::uint32_t& offset,
                                               std::uint32_t& size)
{
    if (level > path.GetLastIndex()) {
        found = this;
        return true;
    }
    const std::uint32_t count = FirstBounds().ElementCount();
    std::uint32_t elementNumber = 0;
    CSymbXMLDDTDef* element = nullptr;
    if (count == 0 || !ElementIndex(path.GetItem(level).index, elementNumber) || IsElementary(elementTypeName) ||
        !types->FindTypeDef(elementTypeName, element))
        return false;
    size /= count;
    offset += elementNumber * size;
    if (level < path.GetLastIndex())
        return element->FindDefinitionAtPath(path, level + 1, types, found, block, offset, size);
    found = element;
    return true;
}
