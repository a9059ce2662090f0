#include "korvaproservices/CChildAttributes.h"

#include "korvaproservices/ElementSearch.h"

const std::vector<pugi::xml_node>& CChildAttributes::Select(pugi::xml_node parent, BSTR tag, BSTR name, BSTR value)
{
    if (!element || element != parent)
        Read(parent);
    const auto wantedTag = ViewOf(tag);
    const auto wantedName = ViewOf(name);
    const auto wantedValue = ViewOf(value);
    selected.clear();
    pugi::xml_node decided; // the last child looked at: one walk through its attributes tells all about it
    // The value first: among the children of one element names and tags hardly differ.
    for (const Entry& entry : entries) {
        if (entry.child == decided || !EqualsUtf16(entry.value, wantedValue) ||
            !EqualsUtf16(entry.attribute.name(), wantedName) || !IsElementCalled(entry.child, wantedTag))
            continue;
        decided = entry.child;
        if (FindAttribute(entry.child, wantedName) == entry.attribute) // not behind one of that name
            selected.push_back(entry.child);
    }
    return selected;
}

void CChildAttributes::Read(pugi::xml_node parent)
{
    element = {}; // should memory run short
    entries.clear();
    for (const pugi::xml_node child : parent.children())
        for (const pugi::xml_attribute attribute : child.attributes())
            entries.push_back({attribute.value(), attribute, child});
    element = parent;
}
