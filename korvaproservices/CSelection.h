#pragma once

#include "platform/com/Bstr.h"

#include <pugixml.hpp>

#include <string>

// Which elements a list delivers: children of an element or elements of the
// whole document, by tag and attribute.
//
// Nothing is collected: the caller walks from Start() with After() until a null
// node. Set anew for each use; the texts keep their memory between uses.
class CSelection
{
public:
    void SetChildren(pugi::xml_node parent);
    void SetChildrenByTag(pugi::xml_node parent, BSTR tag);
    void SetChildrenByAttribute(pugi::xml_node parent, BSTR tag, BSTR attribute, BSTR value);
    void SetDescendants(pugi::xml_node document, BSTR tag);

    // The position in front of the first selected element.
    pugi::xml_node Start() const { return root; }
    // The next selected element in document order; null past the last one and behind null.
    pugi::xml_node After(pugi::xml_node position) const;

private:
    enum class Kind
    {
        children,
        childrenByTag,
        childrenByAttribute,
        descendants
    };

    pugi::xml_node Step(pugi::xml_node position) const;
    bool Matches(pugi::xml_node node) const;
    bool HasWantedAttribute(pugi::xml_node node) const;

    Kind kind = Kind::children;
    pugi::xml_node root;
    std::string wantedTag;
    std::string wantedAttribute;
    std::string wantedValue;
};
