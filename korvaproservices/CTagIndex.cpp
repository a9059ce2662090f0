#include "korvaproservices/CTagIndex.h"

#include "korvaproservices/Text.h"

#include <algorithm>
#include <utility>

namespace {

// A letter is dropped once it begins more tags than this and an eighth of the nodes seen so far.
constexpr std::size_t kAlwaysNoted = 4096;
constexpr std::size_t kNotedShare = 8;

// Visits the nodes below `document` in document order while `visit` returns true; no recursion, as the document
// decides how deep it is.
template <class Visit>
void ForEachNode(pugi::xml_node document, Visit&& visit)
{
    pugi::xml_node node = document.first_child();
    while (node && visit(node)) {
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

} // namespace

std::vector<pugi::xml_node> CTagIndex::Find(pugi::xml_node document, BSTR tag)
{
    if (!isBuilt) {
        groups = MakeGroups(document);
        isBuilt = true;
    }
    std::vector<pugi::xml_node> found;
    ForEachElement(document, tag, [&](pugi::xml_node element) {
        found.push_back(element);
        return true;
    });
    return found;
}

pugi::xml_node CTagIndex::FindFirst(pugi::xml_node document, BSTR tag) const
{
    pugi::xml_node first;
    ForEachElement(document, tag, [&](pugi::xml_node element) {
        first = element;
        return false;
    });
    return first;
}

template <class Visit>
void CTagIndex::ForEachElement(pugi::xml_node document, BSTR tag, Visit&& visit) const
{
    const std::basic_string_view<OLECHAR> wanted = ViewOf(tag);
    const auto visitWanted = [&](pugi::xml_node node) {
        const bool isWanted = EqualsUtf16(node.name(), wanted) && node.type() == pugi::node_element;
        return !isWanted || visit(node);
    };
    const bool isNoted = isBuilt && !wanted.empty() && wanted[0] < groups.size() && !groups[wanted[0]].isDropped;
    if (isNoted)
        static_cast<void>(std::ranges::all_of(groups[wanted[0]].elements, visitWanted));
    else
        ForEachNode(document, visitWanted);
}

CTagIndex::Groups CTagIndex::MakeGroups(pugi::xml_node document)
{
    Groups made;
    std::size_t seen = 0;
    ForEachNode(document, [&](pugi::xml_node node) {
        ++seen;
        const auto letter = static_cast<unsigned char>(*node.name()); // 0 for a text
        if (letter == 0 || letter >= made.size() || made[letter].isDropped)
            return true;
        Group& group = made[letter];
        group.elements.push_back(node);
        if (group.elements.size() > kAlwaysNoted + seen / kNotedShare)
            group = {{}, true};
        return true;
    });
    return made;
}
