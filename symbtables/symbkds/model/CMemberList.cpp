#include "symbkds/model/CMemberList.h"

#include "symbkds/model/CSymbXMLDDTMember.h"

namespace {

constexpr std::uint32_t kIndexBuckets = 181; // once there are members enough to need any

} // namespace

CMemberList::CMemberList()
{
    index.InitHashTable(kIndexBuckets, false);
}

CMemberList::~CMemberList()
{
    for (int position = 0; position < members.GetSize(); ++position)
        delete members[position];
}

void CMemberList::Add(std::unique_ptr<CSymbXMLDDTMember> member)
{
    typeNamesUpper = false;
    CString key = member->name;
    key.MakeUpper();
    const int position = members.Add(nullptr);
    members.SetAt(position, member.release());
    index.SetAt(key, position);
}

CSymbXMLDDTMember* CMemberList::Find(CString name) const
{
    // An index step has an empty name; it designates no member, not even one whose name is missing.
    if (name.IsEmpty())
        return nullptr;
    name.MakeUpper();
    int position = 0;
    return index.Lookup(name, position) ? members[position] : nullptr;
}

void CMemberList::UpdateTypes(MAPOFDDTDEF* types)
{
    for (int position = 0; position < members.GetSize(); ++position)
        members[position]->SetTypeName(members[position]->typeName, types);
}

void CMemberList::Remove(const std::vector<bool>& marked)
{
    // Everything that allocates comes first, so that a failure changes nothing.
    std::vector<int> moved(marked.size());
    int kept = 0;
    for (std::size_t position = 0; position < marked.size(); ++position)
        moved[position] = marked[position] ? -1 : kept++;
    CMemberIndex renumbered;
    renumbered.InitHashTable(kIndexBuckets, false);
    for (const auto* pair = index.PGetFirstAssoc(); pair; pair = index.PGetNextAssoc(pair))
        if (const int position = moved[static_cast<std::size_t>(pair->value)]; position >= 0)
            renumbered.SetAt(pair->key, position);

    for (int position = 0; position < members.GetSize(); ++position) {
        const int target = moved[static_cast<std::size_t>(position)];
        if (target < 0)
            delete members[position];
        else
            members.SetAt(target, members[position]);
    }
    members.Truncate(kept);
    index.Swap(renumbered);
}
