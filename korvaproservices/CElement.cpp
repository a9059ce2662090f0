#include "korvaproservices/CElement.h"

#include "korvaproservices/CDocument.h"
#include "korvaproservices/CElementList.h"
#include "korvaproservices/Guarded.h"
#include "korvaproservices/Text.h"

#include <string>

namespace {

// The text and CDATA children, joined. The first text is the node's own value
// when it stands in front of every other child.
BSTR MakeTextOf(pugi::xml_node element)
{
    const char* text = element.value();
    std::string joined;
    for (pugi::xml_node child = element.first_child(); child; child = child.next_sibling()) {
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
    return MakeBstr(joined.empty() ? text : joined.c_str());
}

// The first child element of that name; a null node when there is none.
pugi::xml_node FindChild(pugi::xml_node element, BSTR tag)
{
    const std::basic_string_view<OLECHAR> wanted = ViewOf(tag);
    for (pugi::xml_node child = element.first_child(); child; child = child.next_sibling())
        if (EqualsUtf16(child.name(), wanted) && child.type() == pugi::node_element)
            return child;
    return {};
}

// The attribute of that name; a null one when there is none.
pugi::xml_attribute FindAttribute(pugi::xml_node element, BSTR name)
{
    const std::basic_string_view<OLECHAR> wanted = ViewOf(name);
    pugi::xml_attribute attribute = element.first_attribute();
    while (attribute && !EqualsUtf16(attribute.name(), wanted))
        attribute = attribute.next_attribute();
    return attribute;
}

} // namespace

HRESULT CElement::QueryInterface(REFIID iid, void** object)
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_WalkElement)
        return E_NOINTERFACE;
    AddRef();
    *object = static_cast<WalkElement*>(this);
    return S_OK;
}

ULONG CElement::AddRef()
{
    return references.Increment();
}

ULONG CElement::Release()
{
    const ULONG left = references.Decrement();
    if (left == 0)
        document.Recycle(this);
    return left;
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
    return Deliver(value, [&] { return MakeBstr(FindAttribute(node, name).value()); });
}

HRESULT CElement::GetChildren(WalkList** list)
{
    return Deliver(list, [&] {
        CInterfacePtr<CElementList> made = document.MakeList();
        made->Selection().SetChildren(node);
        return made.Detach();
    });
}

HRESULT CElement::GetChildrenByName(BSTR tag, WalkList** list)
{
    return Deliver(list, [&] {
        CInterfacePtr<CElementList> made = document.MakeList();
        made->Selection().SetChildrenByTag(node, tag);
        return made.Detach();
    });
}

HRESULT CElement::GetTagName(BSTR* name)
{
    return Deliver(name, [&] { return MakeBstr(node.name()); });
}

HRESULT CElement::SelectChildren(BSTR tag, BSTR attribute, BSTR value, WalkList** list)
{
    return Deliver(list, [&] {
        CInterfacePtr<CElementList> made = document.MakeList();
        document.ChildAttributes().Select(node, tag, attribute, value, made->Collection());
        return made.Detach();
    });
}
