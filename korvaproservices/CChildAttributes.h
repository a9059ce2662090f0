#pragma once

#include "platform/com/Bstr.h"

#include <pugixml.hpp>

#include <vector>

// The attributes of the child elements of one element.
//
// A caller asks one element after the other for several of its children by
// their attributes. The children of the last element asked are therefore kept
// in a table, which is searched several times faster than the tree.
class CChildAttributes
{
public:
    // Stores the children of `parent` called `tag` that have an attribute of that name and value, in document order.
    // May raise std::bad_alloc.
    void Select(pugi::xml_node parent, BSTR tag, BSTR name, BSTR value, std::vector<pugi::xml_node>& selected);

private:
    struct Entry
    {
        const char* value;
        const char* name;
        const char* tag;
        pugi::xml_node child;
    };

    void Read(pugi::xml_node parent);

    pugi::xml_node element; // whose children the entries are; null: none
    std::vector<Entry> entries;
};
