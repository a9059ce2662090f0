#include "symbkds/model/CSymbXMLDFBDef.h"

#include "symbkds/model/CSymbXMLDDTMember.h"
#include "symbkds/model/ImportRules.h"
#include "symbkds/model/MAPOFDDTDEF.h"

void CSymbXMLDFBDef::RemoveDFBMembers(MAPOFDDTDEF* types)
{
    // From the last down: the look-ups may number anonymous arrays, in this order.
    std::vector<bool> marked(static_cast<std::size_t>(members.GetCount()));
    bool any = false;
    for (int position = members.GetCount() - 1; position >= kFirstRemovableParameter; --position) {
        CSymbXMLDDTMember& member = *members.GetAt(position);
        const bool isTakenOut = IsTakenOut(position, member.typeName,
                                           [types](const CString& typeName) { return types->IsDFBType(typeName); });
        marked[static_cast<std::size_t>(position)] = isTakenOut;
        any = any || isTakenOut;
    }
    if (any)
        members.Remove(marked);
}
