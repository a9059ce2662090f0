#include "symbkds/model/CSymbXMLDFBDef.h"

#include "symbkds/model/CSymbXMLDDTMember.h"
#include "symbkds/model/ElementaryTypes.h"
#include "symbkds/model/MAPOFDDTDEF.h"

void CSymbXMLDFBDef::RemoveDFBMembers(MAPOFDDTDEF* types)
{
    // From the last down: the look-ups may number anonymous arrays, in this order.
    std::vector<bool> marked(static_cast<std::size_t>(members.GetCount()));
    bool any = false;
    for (int position = members.GetCount() - 1; position >= 1; --position) {
        std::uint32_t size = 0;
        std::uint32_t typeCode = 0;
        CSymbXMLDDTMember& member = *members.GetAt(position);
        if (ClassifyElementaryType(member.typeName, size, typeCode) || !types->IsDFBType(member.typeName))
            continue;
        marked[static_cast<std::size_t>(position)] = true;
        any = true;
    }
    if (any)
        members.Remove(marked);
}
