#include "symbkds/model/CSymbXMLDFBDef.h"

#include "symbkds/model/CSymbXMLDDTMember.h"
#include "symbkds/model/ElementaryTypes.h"
#include "symbkds/model/ExportWords.h"
#include "symbkds/model/MAPOFDDTDEF.h"

void CSymbXMLDFBDef::RemoveDFBMembers(MAPOFDDTDEF* types)
{
    // From the last down: the look-ups may number anonymous arrays, in this order.
    std::vector<bool> marked(static_cast<std::size_t>(members.GetCount()));
    bool any = false;
    for (int position = members.GetCount() - 1; position >= kFirstRemovableParameter; --position) {
        CSymbXMLDDTMember& member = *members.GetAt(position);
        if (IsElementary(member.typeName) || !types->IsDFBType(member.typeName))
            continue;
        marked[static_cast<std::size_t>(position)] = true;
        any = true;
    }
    if (any)
        members.Remove(marked);
}
