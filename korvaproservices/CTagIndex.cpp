#include "korvaproservices/CTagIndex.h"

#include "korvaproservices/Text.h"

#include <utility>

namespace {

constexpr std::size_t kAlwaysNoted = 4096;
constexpr std::size_t kNotedShare = 8;

// Visits every node below `document` in document order; no recursion, as the document decides how deep it is.
template <class Visit>
void ForEachNode(pugi::xml_node document, Visit&& visit)
{
    pugi::xml_node node = document.first_child();
    while (node) {
        visit(node);
        // Down, else to the right, else up until there is a right.
        pugi::xml_node next = node.first_child();
        if (!next)
            next = node.next_sibling();
        while (!next && node) {
            node = node.parent();
            next = node.next_sibling();
        }
        node = next;
    }
}

bool IsElement(pugi::xml_node node, std::basic_string_view<OLECHAR> tag)
{
    return EqualsUtf16(node.name(), tag) && node.type() == pugi::node_element;
}

} // namespace

std::vector<pugi::xml_node> CTagIndex::Find(pugi::xml_node document, BSTR tag)
{
    if (!isBuilt) {
        groups = MakeGroups(document);
        isBuilt = true;
    }
    const std::basic_string_view<OLECHAR> wanted = ViewOf(tag);
    std::vector<pugi::xml_node> found;
    const auto keepWanted = [&](pugi::xml_node node) {
        if (IsElement(node, wanted))
            found.push_back(node);
    };
    const bool isNoted = !wanted.empty() && wanted[0] < groups.size() && !groups[wanted[0]].isDropped;
    if (!isNoted)
        ForEachNode(document, keepWanted);
    else
        for (const pugi::xml_node node : groups[wanted[0]].elements)
            keepWanted(node);
    return found;
}

CTagIndex::Groups CTagIndex::MakeGroups(pugi::xml_node document)
{
    Groups made;
    std::size_t seen = 0;
    ForEachNode(document, [&](pugi::xml_node node) {
        ++seen;
        const auto letter = static_cast<unsigned char>(*node.name()); // 0 for a text
        if (letter == 0 || letter >= made.size() || made[letter].isDropped)
            return;
        Group& group = made[letter];
        group.elements.push_back(node);
        if (group.elements.size() > kAlwaysNoted + seen / kNotedShare)
            group = {{}, true};
    });
    return made;
}
