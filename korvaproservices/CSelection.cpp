#include "korvaproservices/CSelection.h"

#include "korvaproservices/Text.h"

void CSelection::SetChildren(pugi::xml_node parent)
{
    isByTag = false;
    root = parent;
}

void CSelection::SetChildrenByTag(pugi::xml_node parent, BSTR tag)
{
    isByTag = true;
    root = parent;
    wantedTag = ViewOf(tag);
}

pugi::xml_node CSelection::After(pugi::xml_node position) const
{
    position = position == root ? position.first_child() : position.next_sibling();
    while (position && !Matches(position))
        position = position.next_sibling();
    return position;
}

bool CSelection::Matches(pugi::xml_node node) const
{
    return (!isByTag || EqualsUtf16(node.name(), wantedTag)) && node.type() == pugi::node_element;
}
