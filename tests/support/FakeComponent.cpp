#include "support/FakeComponent.h"

#include "platform/com/ClassObject.h"
#include "platform/mfc/CBstr.h"
#include "platform/mfc/CInterfacePtr.h"
#include "platform/win32/CodePage.h"

#include <atomic>
#include <exception>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <vector>

namespace {

struct Rule
{
    std::string call;
    int occurrence; // of the call that fails, from 1; 0: each
    Fault fault;
    int seen = 0;
};

class CTextlessException : public std::exception
{
public:
    const char* what() const noexcept override { return nullptr; }
};

void AppendTo(std::string& joined, const std::string& text)
{
    joined += (joined.empty() ? "" : ", ") + text;
}

} // namespace

// The tree and the books, shared by all objects of one fake component.
struct FakeState
{
    ExportNode tree;
    std::atomic<int> living = 0;
    std::mutex guard; // of the rest
    std::vector<Rule> rules;
    std::string calls;
    std::string releases;
    std::function<void(const std::string&)> watcher;

    // Records a call; the rule that applies to it, if any. Throws when the rule says so.
    std::optional<Fault> Enter(const std::string& call)
    {
        std::optional<Fault> applied;
        std::function<void(const std::string&)> watch;
        {
            std::lock_guard lock(guard);
            AppendTo(calls, call);
            watch = watcher;
            for (Rule& rule : rules) {
                if (call.starts_with(rule.call) && (++rule.seen == rule.occurrence || rule.occurrence == 0))
                    applied = rule.fault;
            }
        }
        if (watch)
            watch(call);
        if (applied && applied->kind == Fault::Kind::Standard)
            throw std::runtime_error(applied->text);
        if (applied && applied->kind == Fault::Kind::WithoutText)
            throw CTextlessException();
        if (applied && applied->kind == Fault::Kind::Number)
            throw 1;
        return applied;
    }
};

namespace {

using FakeStatePtr = std::shared_ptr<FakeState>;
using NodeList = std::vector<const ExportNode*>; // in the tree of the state

// The reference count and the place of an object in the books.
template <class Interface>
class CFakeObject : public Interface
{
public:
    CFakeObject(FakeStatePtr shared, std::string name) : state(std::move(shared)), label(std::move(name))
    {
        ++state->living;
    }
    CFakeObject(const CFakeObject&) = delete;
    CFakeObject& operator=(const CFakeObject&) = delete;
    virtual ~CFakeObject()
    {
        --state->living;
        std::lock_guard lock(state->guard);
        AppendTo(state->releases, label);
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        *object = iid == IID_IUnknown ? this : nullptr;
        return *object ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        ULONG left = --references;
        if (left == 0)
            delete this;
        return left;
    }

protected:
    // Carries a call out: `deliver` fills the out argument and returns the result.
    template <class Out, class Deliver>
    HRESULT Answer(const std::string& call, Out* out, Deliver deliver)
    {
        *out = Out{};
        std::optional<Fault> fault = state->Enter(call);
        if (fault && fault->kind == Fault::Kind::Result)
            return fault->result;
        HRESULT result = deliver();
        if (fault && fault->kind == Fault::Kind::NumberAndValue)
            throw 1;
        return fault ? fault->result : result;
    }
    HRESULT AnswerText(const std::string& call, BSTR* out, const std::string& text)
    {
        return Answer(call, out, [&] { return *out = CBstr::FromNarrow(text.c_str(), CP_UTF8).Detach(), S_OK; });
    }
    HRESULT AnswerList(const std::string& call, WalkList** out, NodeList nodes);

    FakeStatePtr state;
    std::string label;

private:
    std::atomic<ULONG> references = 1;
};

std::string AttributeOf(const ExportNode& node, const std::string& name)
{
    for (const auto& [key, value] : node.attributes) {
        if (key == name)
            return value;
    }
    return "";
}

class CFakeElement : public CFakeObject<WalkElement>
{
public:
    CFakeElement(FakeStatePtr shared, const ExportNode& shown) : CFakeObject(std::move(shared), shown.tag), node(shown)
    {}

    HRESULT STDMETHODCALLTYPE GetText(BSTR* text) override { return AnswerText("GetText", text, node.text); }
    HRESULT STDMETHODCALLTYPE GetChildText(BSTR tag, BSTR* text) override
    {
        const NodeList found = ChildrenCalled(Narrow(tag));
        return AnswerText("GetChildText " + Narrow(tag), text, found.empty() ? "" : found.front()->text);
    }
    HRESULT STDMETHODCALLTYPE GetAttribute(BSTR name, BSTR* value) override
    {
        return AnswerText("GetAttribute " + Narrow(name), value, AttributeOf(node, Narrow(name)));
    }
    HRESULT STDMETHODCALLTYPE GetTagName(BSTR* name) override { return AnswerText("GetTagName", name, node.tag); }
    HRESULT STDMETHODCALLTYPE GetChildren(WalkList** list) override
    {
        return AnswerList("GetChildren", list, ChildrenCalled(""));
    }
    HRESULT STDMETHODCALLTYPE GetChildrenByName(BSTR tag, WalkList** list) override
    {
        return AnswerList("GetChildrenByName " + Narrow(tag), list, ChildrenCalled(Narrow(tag)));
    }
    HRESULT STDMETHODCALLTYPE SelectChildren(BSTR tag, BSTR attribute, BSTR value, WalkList** list) override
    {
        NodeList found = ChildrenCalled(Narrow(tag));
        std::erase_if(found, [&](auto child) { return AttributeOf(*child, Narrow(attribute)) != Narrow(value); });
        return AnswerList("SelectChildren " + Narrow(tag) + " " + Narrow(attribute) + " " + Narrow(value), list, found);
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

    const ExportNode& node;
};

class CFakeList : public CFakeObject<WalkList>
{
public:
    CFakeList(FakeStatePtr shared, NodeList listed) : CFakeObject(std::move(shared), "list"), nodes(std::move(listed))
    {}

    HRESULT STDMETHODCALLTYPE Next(WalkElement** element) override
    {
        return Answer("Next", element, [&] { return next < nodes.size() ? Deliver(element, next++) : S_FALSE; });
    }
    HRESULT STDMETHODCALLTYPE Item(LONG index, WalkElement** element) override
    {
        return Answer("Item " + std::to_string(index), element, [&] {
            const std::size_t position = static_cast<std::size_t>(index);
            return position < nodes.size() ? Deliver(element, position) : E_INVALIDARG;
        });
    }
    HRESULT STDMETHODCALLTYPE Count(LONG* count) override
    {
        return Answer("Count", count, [&] { return *count = static_cast<LONG>(nodes.size()), S_OK; });
    }

private:
    HRESULT Deliver(WalkElement** element, std::size_t position)
    {
        *element = new CFakeElement(state, *nodes[position]);
        return S_OK;
    }

    NodeList nodes;
    std::size_t next = 0;
};

template <class Interface>
HRESULT CFakeObject<Interface>::AnswerList(const std::string& call, WalkList** out, NodeList nodes)
{
    return Answer(call, out, [&] { return *out = new CFakeList(state, std::move(nodes)), S_OK; });
}

void CollectCalled(const ExportNode& node, const std::string& tag, NodeList& found)
{
    if (node.tag == tag)
        found.push_back(&node);
    for (const ExportNode& child : node.children)
        CollectCalled(child, tag, found);
}

class CFakeWalkSource : public CFakeObject<WalkSource>
{
public:
    explicit CFakeWalkSource(FakeStatePtr shared) : CFakeObject(std::move(shared), "WalkSource") {}

    HRESULT STDMETHODCALLTYPE FindElement(BSTR tag, WalkElement** element) override
    {
        return Answer("FindElement " + Narrow(tag), element, [&] {
            NodeList found;
            CollectCalled(state->tree, Narrow(tag), found);
            *element = found.empty() ? nullptr : new CFakeElement(state, *found.front());
            return *element ? S_OK : S_FALSE;
        });
    }
    HRESULT STDMETHODCALLTYPE GetElementList(BSTR tag, WalkList** list) override
    {
        NodeList found;
        CollectCalled(state->tree, Narrow(tag), found);
        return AnswerList("GetElementList " + Narrow(tag), list, std::move(found));
    }
};

class CFakeImportSource : public CFakeObject<ImportSource>
{
public:
    explicit CFakeImportSource(FakeStatePtr shared) : CFakeObject(std::move(shared), "ImportSource") {}

    HRESULT STDMETHODCALLTYPE InitImportWithoutDlg(BSTR path) override
    {
        std::string name = Narrow(path);
        return Carry("InitImportWithoutDlg " + name.substr(name.find_last_of("/\\") + 1));
    }
    HRESULT STDMETHODCALLTYPE ImportFile() override { return Carry("ImportFile"); }

private:
    HRESULT Carry(const std::string& call)
    {
        int nothing;
        return Answer(call, &nothing, [] { return S_OK; });
    }
};

class CFakeServices : public CFakeObject<IUnknown>
{
public:
    explicit CFakeServices(FakeStatePtr shared) : CFakeObject(std::move(shared), "KorvaProServices") {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        if (iid == IID_ImportSource)
            return Answer("QueryInterface ImportSource", object,
                          [&] { return *object = static_cast<ImportSource*>(new CFakeImportSource(state)), S_OK; });
        if (iid == IID_WalkSource)
            return Answer("QueryInterface WalkSource", object,
                          [&] { return *object = static_cast<WalkSource*>(new CFakeWalkSource(state)), S_OK; });
        return CFakeObject::QueryInterface(iid, object);
    }
};

class CFakeClassObject : public CFakeObject<IClassFactory>
{
public:
    explicit CFakeClassObject(FakeStatePtr shared) : CFakeObject(std::move(shared), "class object") {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        return CFakeObject::QueryInterface(iid == IID_IClassFactory ? IID_IUnknown : iid, object);
    }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override
    {
        return Answer("CreateInstance", object, [&]() -> HRESULT {
            if (outer)
                return CLASS_E_NOAGGREGATION;
            const auto services = CInterfacePtr<IUnknown>::Adopt(new CFakeServices(state));
            return services->QueryInterface(iid, object);
        });
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

} // namespace

CFakeComponent::CFakeComponent(std::string_view exportText) : state(std::make_shared<FakeState>())
{
    state->tree = ParseExport(exportText);
    const auto classObject = CInterfacePtr<IUnknown>::Adopt(new CFakeClassObject(state));
    if (FAILED(CoRegisterClassObject(CLSID_KorvaProServices, classObject.Get(), CLSCTX_INPROC_SERVER,
                                     REGCLS_MULTIPLEUSE, &cookie)))
        throw std::runtime_error("the class object cannot be registered");
}

CFakeComponent::~CFakeComponent()
{
    CoRevokeClassObject(cookie);
}

void CFakeComponent::Show(std::string_view exportText)
{
    state->tree = ParseExport(exportText);
}

void CFakeComponent::Fail(std::string call, int occurrence, Fault fault)
{
    std::lock_guard lock(state->guard);
    state->rules.push_back({std::move(call), occurrence, std::move(fault)});
}

std::string CFakeComponent::TakeCalls()
{
    std::lock_guard lock(state->guard);
    return std::exchange(state->calls, "");
}

std::string CFakeComponent::TakeReleases()
{
    std::lock_guard lock(state->guard);
    return std::exchange(state->releases, "");
}

int CFakeComponent::LivingObjects() const
{
    return state->living - 1; // without the class object, which lives as long as its registration
}

void CFakeComponent::Watch(std::function<void(const std::string&)> watcher)
{
    std::lock_guard lock(state->guard);
    state->watcher = std::move(watcher);
}
