#include "support/FakeComponent.h"

#include "platform/com/ClassObject.h"
#include "platform/com/InterfacePtr.h"
#include "support/FakeWalk.h"

#include <stdexcept>

namespace {

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
        return Answer(*state, "FindElement " + Narrow(tag), element, [&] {
            NodeList found;
            CollectCalled(state->tree, Narrow(tag), found);
            return found.empty() ? S_FALSE : DeliverElement(element, state, found.front());
        });
    }
    HRESULT STDMETHODCALLTYPE GetElementList(BSTR tag, WalkList** list) override
    {
        return Answer(*state, "GetElementList " + Narrow(tag), list, [&] {
            NodeList found;
            CollectCalled(state->tree, Narrow(tag), found);
            return DeliverList(list, state, std::move(found));
        });
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
        return Answer(*state, call, &nothing, [] { return S_OK; });
    }
};

class CFakeServices : public CFakeObject<IUnknown>
{
public:
    explicit CFakeServices(FakeStatePtr shared) : CFakeObject(std::move(shared), "KorvaProServices") {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        if (iid == IID_IUnknown)
            return CFakeObject::QueryInterface(iid, object);
        const char* name = iid == IID_ImportSource ? "ImportSource"
                           : iid == IID_WalkSource ? "WalkSource"
                                                   : "of an unknown interface";
        return Answer(*state, std::string("QueryInterface ") + name, object, [&]() -> HRESULT {
            if (iid == IID_ImportSource)
                *object = static_cast<ImportSource*>(new CFakeImportSource(state));
            else if (iid == IID_WalkSource)
                *object = static_cast<WalkSource*>(new CFakeWalkSource(state));
            return *object ? S_OK : E_NOINTERFACE;
        });
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
        return Answer(*state, "CreateInstance", object, [&]() -> HRESULT {
            if (outer)
                return CLASS_E_NOAGGREGATION;
            CFakeServices* services = new CFakeServices(state);
            HRESULT result = services->CFakeObject::QueryInterface(iid, object);
            services->Release();
            return result;
        });
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

} // namespace

CFakeComponent::CFakeComponent(ExportNode tree) : state(std::make_shared<FakeState>())
{
    state->tree = std::move(tree);
    CInterfacePtr<IUnknown> classObject;
    *classObject.Put() = new CFakeClassObject(state);
    if (FAILED(CoRegisterClassObject(CLSID_KorvaProServices, classObject.Get(), CLSCTX_INPROC_SERVER,
                                     REGCLS_MULTIPLEUSE, &cookie)))
        throw std::runtime_error("the class object cannot be registered");
}

CFakeComponent::~CFakeComponent()
{
    CoRevokeClassObject(cookie);
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
