#pragma once

#include "korvaproservices/DocumentText.h"

#include <pugixml.hpp>

// May raise std::bad_alloc.
inline bool IsElementCalled(pugi::xml_node node, std::basic_string_view<OLECHAR> tag)
{
    return EqualsUtf16(node.name(), tag) && node.type() == pugi::node_element;
}

// The attribute of that name, of two the first one; a null one when there is none. May raise std::bad_alloc.
inline pugi::xml_attribute FindAttribute(pugi::xml_node element, std::basic_string_view<OLECHAR> name)
{
    pugi::xml_attribute attribute = element.first_attribute();
    while (attribute && !EqualsUtf16(attribute.name(), name))
        attribute = attribute.next_attribute();
    return attribute;
}

// The first element called `tag` behind `node` in document order, the descendants of `node` before its siblings; null
// when there is none. May raise std::bad_alloc.
pugi::xml_node NextElementCalled(pugi::xml_node node, std::basic_string_view<OLECHAR> tag);
