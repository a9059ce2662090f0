#pragma once

#include "platform/com/Bstr.h"

#include <pugixml.hpp>

#include <array>
#include <vector>

// Finds the elements of a whole document by their tags.
//
// The first search for all of them walks the tree and notes the elements by the
// first letter of their tags, so the next ones need not walk it again. A letter
// that turns out to begin a great share of the tags is not noted: its list would
// cost more than the walk.
class CTagIndex
{
public:
    // The elements of `document` called `tag`, in document order; always the same document. May raise std::bad_alloc.
    std::vector<pugi::xml_node> Find(pugi::xml_node document, BSTR tag);
    // The first of them; a null node when there is none.
    pugi::xml_node FindFirst(pugi::xml_node document, BSTR tag) const;

private:
    struct Group
    {
        std::vector<pugi::xml_node> elements;
        bool isDropped = false;
    };
    using Groups = std::array<Group, 128>; // by ASCII letters

    static Groups MakeGroups(pugi::xml_node document);
    // Visits the elements called `tag` in document order while `visit` returns true.
    template <class Visit>
    void ForEachElement(pugi::xml_node document, BSTR tag, Visit&& visit) const;

    Groups groups;
    bool isBuilt = false;
};
