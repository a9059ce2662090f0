// References, identities and when the library may be unloaded.
#include "korvaproservices/ComponentFixture.h"
#include "platform/win32/Library.h"

namespace {

// The entry points of the very library that CoCreateInstance loads.
class Lifetime : public CComponentTest
{
protected:
    using CanUnloadNow = HRESULT(STDMETHODCALLTYPE*)();
    using GetClassObject = HRESULT(STDMETHODCALLTYPE*)(REFCLSID, REFIID, void**);

    void SetUp() override
    {
        CComponentTest::SetUp();
        char program[4096];
        ASSERT_GT(GetModuleFileNameA(nullptr, program, sizeof program), 0U);
        const std::string path = std::filesystem::path(program).parent_path().string() + COMPONENT_FILE;
        library = LoadLibraryA(path.c_str());
        ASSERT_TRUE(library) << path;
        canUnloadNow = reinterpret_cast<CanUnloadNow>(GetProcAddress(library, "DllCanUnloadNow"));
        getClassObject = reinterpret_cast<GetClassObject>(GetProcAddress(library, "DllGetClassObject"));
        ASSERT_TRUE(canUnloadNow && getClassObject);
    }

    void TearDown() override
    {
        CComponentTest::TearDown();
        EXPECT_EQ(canUnloadNow(), S_OK); // nothing leaked
        FreeLibrary(library);
    }

    CInterfacePtr<IClassFactory> Factory()
    {
        CInterfacePtr<IClassFactory> factory;
        EXPECT_EQ(getClassObject(CLSID_KorvaProServices, IID_IClassFactory, factory.PutVoid()), S_OK);
        return factory;
    }

    HMODULE library = nullptr;
    CanUnloadNow canUnloadNow = nullptr;
    GetClassObject getClassObject = nullptr;
};

TEST_F(Lifetime, ElementsOutliveTheComponent)
{
    ElementPtr root = LoadAndFind("<r a='1'><x id='1'/><x id='2'/></r>", "r");
    ListPtr list = ChildrenOf(root);
    import.Release();
    walk.Release();
    EXPECT_EQ(canUnloadNow(), S_FALSE);
    EXPECT_EQ(AttributeOf(root, "a"), "1");
    root.Release();
    ElementPtr last;
    EXPECT_EQ(list->Item(1, last.Put()), S_OK);
    EXPECT_EQ(RestOf(list), "x=1 x=2");
    list.Release();
    EXPECT_EQ(AttributeOf(last, "id"), "2");
    EXPECT_EQ(canUnloadNow(), S_FALSE);
    last.Release();
    EXPECT_EQ(canUnloadNow(), S_OK);
}

TEST_F(Lifetime, CountsReferences)
{
    const ElementPtr root = LoadAndFind("<r/>", "r");
    const ListPtr list = ChildrenOf(root);
    IUnknown* const objects[] = {root.Get(), list.Get(), import.Get()};
    const ULONG held[] = {1, 1, 2};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(objects[i]->AddRef(), held[i] + 1);
        EXPECT_EQ(objects[i]->AddRef(), held[i] + 2);
        EXPECT_EQ(objects[i]->Release(), held[i] + 1);
        EXPECT_EQ(objects[i]->Release(), held[i]);
    }
}

TEST_F(Lifetime, InterfacesBelongToOneObject)
{
    const ElementPtr root = LoadAndFind("<r/>", "r");
    const ListPtr list = ChildrenOf(root);
    const auto query = [](IUnknown* object, REFIID iid) {
        CInterfacePtr<IUnknown> found;
        const HRESULT result = object->QueryInterface(iid, found.PutVoid());
        EXPECT_EQ(result, found ? S_OK : E_NOINTERFACE);
        return found.Get();
    };
    EXPECT_EQ(query(import.Get(), IID_IUnknown), query(walk.Get(), IID_IUnknown));
    EXPECT_EQ(query(walk.Get(), IID_ImportSource), import.Get());
    EXPECT_EQ(query(import.Get(), IID_WalkElement), nullptr);
    EXPECT_EQ(query(root.Get(), IID_IUnknown), query(root.Get(), IID_WalkElement));
    EXPECT_EQ(query(root.Get(), IID_WalkList), nullptr);
    EXPECT_EQ(query(list.Get(), IID_IUnknown), query(list.Get(), IID_WalkList));
    EXPECT_EQ(query(list.Get(), IID_WalkSource), nullptr);
}

TEST_F(Lifetime, ClassObject)
{
    void* object = this;
    EXPECT_EQ(getClassObject(CLSID_KorvaProServices, IID_IClassFactory, nullptr), E_POINTER);
    EXPECT_EQ(getClassObject(IID_WalkList, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(getClassObject(CLSID_KorvaProServices, IID_WalkList, &object), E_NOINTERFACE);
    import.Release();
    walk.Release();
    CInterfacePtr<IClassFactory> factory = Factory();
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_WalkElement, &object), E_NOINTERFACE);
    EXPECT_EQ(canUnloadNow(), S_FALSE);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    factory.Release();
    EXPECT_EQ(canUnloadNow(), S_FALSE);
    EXPECT_EQ(Factory()->LockServer(FALSE), S_OK);
    EXPECT_EQ(canUnloadNow(), S_OK);
    EXPECT_EQ(Factory()->CreateInstance(nullptr, IID_WalkSource, walk.PutVoid()), S_OK);
    EXPECT_EQ(canUnloadNow(), S_FALSE);
}

TEST_F(Lifetime, NullOutArguments)
{
    EXPECT_EQ(walk->FindElement(Wide("r").Get(), nullptr), E_POINTER); // nothing is loaded yet
    const ElementPtr root = LoadAndFind("<r/>", "r");
    const ListPtr list = ChildrenOf(root);
    const CBstr key = Wide("k");
    EXPECT_EQ(import->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(walk->FindElement(key.Get(), nullptr), E_POINTER);
    EXPECT_EQ(walk->GetElementList(key.Get(), nullptr), E_POINTER);
    EXPECT_EQ(root->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(root->GetText(nullptr), E_POINTER);
    EXPECT_EQ(root->GetChildText(key.Get(), nullptr), E_POINTER);
    EXPECT_EQ(root->GetAttribute(key.Get(), nullptr), E_POINTER);
    EXPECT_EQ(root->GetChildren(nullptr), E_POINTER);
    EXPECT_EQ(root->GetChildrenByName(key.Get(), nullptr), E_POINTER);
    EXPECT_EQ(root->GetTagName(nullptr), E_POINTER);
    EXPECT_EQ(root->SelectChildren(key.Get(), key.Get(), key.Get(), nullptr), E_POINTER);
    EXPECT_EQ(list->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(list->Next(nullptr), E_POINTER);
    EXPECT_EQ(list->Item(0, nullptr), E_POINTER);
    EXPECT_EQ(list->Count(nullptr), E_POINTER);
}

} // namespace
