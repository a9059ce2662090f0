#include "korvaproservices/CChildAttributes.h"

#include "korvaproservices/Text.h"

void CChildAttributes::Select(pugi::xml_node parent, BSTR tag, BSTR name, BSTR value,
                              std::vector<pugi::xml_node>& selected)
{
    if (!element || element != parent)
        Read(parent);
    const auto wantedTag = ViewOf(tag);
    const auto wantedName = ViewOf(name);
    const auto wantedValue = ViewOf(value);
    selected.clear();
    // The value first: among the children of one element names and tags hardly differ.
    for (const Entry& entry : entries)
        if (EqualsUtf16(entry.value, wantedValue) && EqualsUtf16(entry.name, wantedName) &&
            EqualsUtf16(entry.tag, wantedTag) && (selected.empty() || selected.back() != entry.child))
            selected.push_back(entry.child);
}

void CChildAttributes::Read(pugi::xml_node parent)
{
    element = {}; // should memory run short
    entries.clear();
    for (pugi::xml_node child = parent.first_child(); child; child = child.next_sibling())
        for (pugi::xml_attribute attribute = child.first_attribute(); attribute; attribute = attribute.next_attribute())
            entries.push_back({attribute.value(), attribute.name(), child.name(), child});
    element = parent;
}
