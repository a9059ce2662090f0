#include "support/FakeWalk.h"

#include "platform/com/BstrHolder.h"
#include "platform/win32/CodePage.h"
#include "support/HostView.h"

namespace {

HRESULT DeliverText(BSTR* out, const std::string& text)
{
    *out = CBstr::FromNarrow(text.c_str(), CP_UTF8).Detach();
    return S_OK;
}

std::string AttributeOf(const ExportNode& node, const std::string& name)
{
    for (const auto& [key, value] : node.attributes) {
        if (key == name)
            return value;
    }
    return "";
}

class CFakeList : public CFakeObject<WalkList>
{
public:
    CFakeList(FakeStatePtr shared, NodeList listed) : CFakeObject(std::move(shared), "list"), nodes(std::move(listed))
    {}

    HRESULT STDMETHODCALLTYPE Next(WalkElement** element) override
    {
        return Answer(*state, "Next", element,
                      [&] { return next < nodes.size() ? DeliverElement(element, state, nodes[next++]) : S_FALSE; });
    }
    HRESULT STDMETHODCALLTYPE Item(LONG index, WalkElement** element) override
    {
        return Answer(*state, "Item " + std::to_string(index), element, [&] {
            std::size_t position = static_cast<std::size_t>(index);
            return position < nodes.size() ? DeliverElement(element, state, nodes[position]) : E_INVALIDARG;
        });
    }
    HRESULT STDMETHODCALLTYPE Count(LONG* count) override
    {
        return Answer(*state, "Count", count, [&] {
            *count = static_cast<LONG>(nodes.size());
            return S_OK;
        });
    }

private:
    NodeList nodes;
    std::size_t next = 0;
};

class CFakeElement : public CFakeObject<WalkElement>
{
public:
    CFakeElement(FakeStatePtr shared, const ExportNode& shown) : CFakeObject(std::move(shared), shown.tag), node(shown)
    {}

    HRESULT STDMETHODCALLTYPE GetText(BSTR* text) override
    {
        return Answer(*state, "GetText", text, [&] { return DeliverText(text, node.text); });
    }
    HRESULT STDMETHODCALLTYPE GetChildText(BSTR tag, BSTR* text) override
    {
        return Answer(*state, "GetChildText " + Narrow(tag), text, [&] {
            NodeList found = ChildrenCalled(Narrow(tag));
            return DeliverText(text, found.empty() ? "" : found.front()->text);
        });
    }
    HRESULT STDMETHODCALLTYPE GetAttribute(BSTR name, BSTR* value) override
    {
        return Answer(*state, "GetAttribute " + Narrow(name), value,
                      [&] { return DeliverText(value, AttributeOf(node, Narrow(name))); });
    }
    HRESULT STDMETHODCALLTYPE GetChildren(WalkList** list) override
    {
        return Answer(*state, "GetChildren", list, [&] { return DeliverList(list, state, ChildrenCalled("")); });
    }
    HRESULT STDMETHODCALLTYPE GetChildrenByName(BSTR tag, WalkList** list) override
    {
        return Answer(*state, "GetChildrenByName " + Narrow(tag), list,
                      [&] { return DeliverList(list, state, ChildrenCalled(Narrow(tag))); });
    }
    HRESULT STDMETHODCALLTYPE GetTagName(BSTR* name) override
    {
        return Answer(*state, "GetTagName", name, [&] { return DeliverText(name, node.tag); });
    }
    HRESULT STDMETHODCALLTYPE SelectChildren(BSTR tag, BSTR attribute, BSTR value, WalkList** list) override
    {
        std::string call = "SelectChildren " + Narrow(tag) + " " + Narrow(attribute) + " " + Narrow(value);
        return Answer(*state, call, list, [&] {
            NodeList found = ChildrenCalled(Narrow(tag));
            std::erase_if(found, [&](const ExportNode* child) {
                return AttributeOf(*child, Narrow(attribute)) != Narrow(value);
            });
            return DeliverList(list, state, std::move(found));
        });
    }

private:
    // All of them for an empty tag.
    NodeList ChildrenCalled(const std::string& tag) const
    {
        NodeList found;
        for (const ExportNode& child : node.children) {
            if (!child.tag.empty() && (tag.empty() || child.tag == tag))
                found.push_back(&child);
        }
        return found;
    }

    const ExportNode& node; // in the tree of the state
};

} // namespace

HRESULT DeliverElement(WalkElement** out, const FakeStatePtr& state, const ExportNode* node)
{
    *out = new CFakeElement(state, *node);
    return S_OK;
}

HRESULT DeliverList(WalkList** out, const FakeStatePtr& state, NodeList nodes)
{
    *out = new CFakeList(state, std::move(nodes));
    return S_OK;
}
