#pragma once

#include "platform/com/Bstr.h"

#include <pugixml.hpp>

#include <vector>

// The attributes of the child elements of one element.
//
// A caller asks one element after the other for several of its children by
// their attributes. The attributes of the children of the last element asked
// are therefore kept in a table, which is searched faster than the tree.
class CChildAttributes
{
public:
    // The children of `parent` called `tag` whose attribute `name` has that value, in document order; valid until the
    // next call. May raise std::bad_alloc.
    const std::vector<pugi::xml_node>& Select(pugi::xml_node parent, BSTR tag, BSTR name, BSTR value);

private:
    struct Entry
    {
        const char* value;
        pugi::xml_attribute attribute;
        pugi::xml_node child;
    };

    void Read(pugi::xml_node parent);

    pugi::xml_node element; // whose children the entries are; null: none
    std::vector<Entry> entries;
    std::vector<pugi::xml_node> selected;
};
