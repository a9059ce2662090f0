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
    AssignUtf8(wantedTag, tag);
}

void CSelection::SetChildrenByAttribute(pugi::xml_node parent, BSTR tag, BSTR attribute, BSTR value)
{
    kind = Kind::childrenByAttribute;
    root = parent;
    AssignUtf8(wantedTag, tag);
    AssignUtf8(wantedAttribute, attribute);
    AssignUtf8(wantedValue, value);
}

void CSelection::SetDescendants(pugi::xml_node document, BSTR tag)
{
    kind = Kind::descendants;
    root = document;
    AssignUtf8(wantedTag, tag);
}

pugi::xml_node CSelection::After(pugi::xml_node position) const
{
    // Nearly every look-up asks for the first match alone: the parser's own search finds it twice as fast.
    if (kind == Kind::childrenByAttribute && position == root)
        return root.find_child_by_attribute(wantedTag.c_str(), wantedAttribute.c_str(), wantedValue.c_str());
    do
        position = Step(position);
    while (position && !Matches(position));
    return position;
}

pugi::xml_node CSelection::Step(pugi::xml_node position) const
{
    if (position == root)
        return position.first_child();
    if (kind != Kind::descendants)
        return position.next_sibling();
    // Down, else to the right, else up until there is a right; no recursion, as
    // the document decides how deep this goes.
    if (const pugi::xml_node child = position.first_child())
        return child;
    while (position && !position.next_sibling())
        position = position.parent();
    return position.next_sibling();
}

bool CSelection::Matches(pugi::xml_node node) const
{
    if (node.type() != pugi::node_element || (kind != Kind::children && wantedTag != node.name()))
        return false;
    return kind != Kind::childrenByAttribute || HasWantedAttribute(node);
}

bool CSelection::HasWantedAttribute(pugi::xml_node node) const
{
    for (pugi::xml_attribute attribute = node.first_attribute(); attribute; attribute = attribute.next_attribute())
        if (wantedAttribute == attribute.name() && wantedValue == attribute.value())
            return true;
    return false;
}
