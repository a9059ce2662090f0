#include "korvaproservices/CElement.h"

#include "korvaproservices/CElementList.h"
#include "korvaproservices/ElementSearch.h"
#include "korvaproservices/ResultOf.h"

#include <string>

namespace {

// The text and CDATA children, joined. The first text is the node's own value
// when it stands in front of every other child.
BSTR MakeTextOf(pugi::xml_node element)
{
    const char* text = element.value();
    std::string joined;
    for (const pugi::xml_node child : element.children()) {
        if (child.type() != pugi::node_pcdata && child.type() != pugi::node_cdata)
            continue;
        if (*text == '\0') {
            text = child.value();
            continue;
        }
        if (joined.empty())
            joined = text;
        joined += child.value();
    }
    return BstrOf(joined.empty() ? text : joined.c_str());
}

// The first child element of that name; a null node when there is none.
pugi::xml_node FindChild(pugi::xml_node element, BSTR tag)
{
    const std::basic_string_view<OLECHAR> wanted = ViewOf(tag);
    for (const pugi::xml_node child : element.children())
        if (IsElementCalled(child, wanted))
            return child;
    return {};
}

// A list of the children for which `isWanted` holds.
template <class IsWanted>
WalkList* MakeListOfChildren(CDocument& document, pugi::xml_node element, IsWanted isWanted)
{
    auto list = CElementList::Make(document);
    for (const pugi::xml_node child : element.children())
        if (isWanted(child))
            list->Add(child);
    return list.Detach();
}

} // namespace

// Here, because lists make elements without knowing the class, which itself makes lists.
WalkElement* CDocument::MakeElement(pugi::xml_node node)
{
    return node ? new (*this) CElement(*this, node) : nullptr;
}

HRESULT CElement::GetText(BSTR* text)
{
    return Deliver(text, [&] { return MakeTextOf(node); });
}

HRESULT CElement::GetChildText(BSTR tag, BSTR* text)
{
    return Deliver(text, [&] { return MakeTextOf(FindChild(node, tag)); });
}

HRESULT CElement::GetAttribute(BSTR name, BSTR* value)
{
    return Deliver(value, [&] { return BstrOf(FindAttribute(node, ViewOf(name)).value()); });
}

HRESULT CElement::GetChildren(WalkList** list)
{
    return Deliver(list, [&] {
        return MakeListOfChildren(*document.Get(), node,
                                  [](pugi::xml_node child) { return child.type() == pugi::node_element; });
    });
}

HRESULT CElement::GetChildrenByName(BSTR tag, WalkList** list)
{
    return Deliver(list, [&] {
        return MakeListOfChildren(*document.Get(), node, [wanted = ViewOf(tag)](pugi::xml_node child) {
            return IsElementCalled(child, wanted);
        });
    });
}

HRESULT CElement::GetTagName(BSTR* name)
{
    return Deliver(name, [&] { return BstrOf(node.name()); });
}

HRESULT CElement::SelectChildren(BSTR tag, BSTR attribute, BSTR value, WalkList** list)
{
    return Deliver(list, [&] {
        auto made = CElementList::Make(*document.Get());
        for (const pugi::xml_node child : document->ChildAttributes().Select(node, tag, attribute, value))
            made->Add(child);
        return made.Detach();
    });
}
