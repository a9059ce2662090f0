#include "korvaproservices/CSelection.h"

#include "korvaproservices/Text.h"

void CSelection::SetChildren(pugi::xml_node parent)
{
    kind = Kind::children;
    root = parent;
}

void CSelection::SetChildrenByTag(pugi::xml_node parent, BSTR tag)
{
    kind = Kind::childrenByTag;
    root = parent;
    wantedTag = ViewOf(tag);
}

void CSelection::SetDescendants(pugi::xml_node document, BSTR tag)
{
    kind = Kind::descendants;
    root = document;
    wantedTag = ViewOf(tag);
}

pugi::xml_node CSelection::After(pugi::xml_node position) const
{
    if (kind == Kind::descendants)
        return DescendantAfter(position);
    position = position == root ? position.first_child() : position.next_sibling();
    while (position && !Matches(position))
        position = position.next_sibling();
    return position;
}

pugi::xml_node CSelection::DescendantAfter(pugi::xml_node position) const
{
    // Down, else to the right, else up until there is a right; no recursion, as
    // the document decides how deep this goes.
    while (position) {
        pugi::xml_node next = position.first_child();
        while (!next && position) {
            next = position.next_sibling();
            position = position.parent();
        }
        position = next;
        if (IsWantedElement(position))
            break;
    }
    return position;
}

bool CSelection::Matches(pugi::xml_node node) const
{
    return kind == Kind::children ? node.type() == pugi::node_element : IsWantedElement(node);
}

bool CSelection::IsWantedElement(pugi::xml_node node) const
{
    return EqualsUtf16(node.name(), wantedTag) && node.type() == pugi::node_element;
}
