#include "korvaproservices/ElementSearch.h"

namespace {

// Down, else to the right, else up until there is a right; no recursion, as the document decides how deep it is.
pugi::xml_node Following(pugi::xml_node node)
{
    if (const pugi::xml_node child = node.first_child())
        return child;
    pugi::xml_node next = node.next_sibling();
    while (!next && node) {
        node = node.parent();
        next = node.next_sibling();
    }
    return next;
}

} // namespace

pugi::xml_node NextElementCalled(pugi::xml_node node, std::basic_string_view<OLECHAR> tag)
{
    do
        node = Following(node);
    while (node && !IsElementCalled(node, tag));
    return node;
}
