#pragma once

#include "platform/com/Bstr.h"

#include <pugixml.hpp>

#include <string>

// Which children of an element a list delivers: all of them or those with one tag.
//
// Nothing is collected: the caller walks from Start() with After() until a null
// node. Set anew for each use; the text keeps its memory between uses.
class CSelection
{
public:
    void SetChildren(pugi::xml_node parent);
    void SetChildrenByTag(pugi::xml_node parent, BSTR tag);

    // The position in front of the first selected element.
    pugi::xml_node Start() const { return root; }
    // The next selected element in document order; null past the last one and behind null.
    pugi::xml_node After(pugi::xml_node position) const;

private:
    bool Matches(pugi::xml_node node) const;

    bool isByTag = false;
    pugi::xml_node root;
    std::basic_string<OLECHAR> wantedTag;
};
