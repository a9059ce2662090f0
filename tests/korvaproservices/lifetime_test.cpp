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

TEST_F(Lifetime, CountsReferencesOfEachIdentity)
{
    const ElementPtr root = LoadAndFind("<r/>", "r");
    const ListPtr list = ChildrenOf(root);
    const struct
    {
        IUnknown* object;
        IID interfaceId, another;
        ULONG held;
    } rows[] = {{root.Get(), IID_WalkElement, IID_WalkList, 1},
                {list.Get(), IID_WalkList, IID_WalkElement, 1},
                {import.Get(), IID_ImportSource, IID_WalkList, 2}};
    for (const auto& row : rows) {
        void* found = this;
        EXPECT_EQ(row.object->QueryInterface(row.another, &found), E_NOINTERFACE);
        EXPECT_EQ(found, nullptr);
        for (const IID& iid : {row.interfaceId, IID_IUnknown}) {
            EXPECT_EQ(row.object->QueryInterface(iid, &found), S_OK);
            EXPECT_EQ(found, row.object);
        }
        EXPECT_EQ(row.object->AddRef(), row.held + 3);
        for (const ULONG left : {2U, 1U, 0U})
            EXPECT_EQ(row.object->Release(), row.held + left);
    }
    CInterfacePtr<IUnknown> identity;
    EXPECT_EQ(walk->QueryInterface(IID_IUnknown, identity.PutVoid()), S_OK);
    EXPECT_EQ(identity.Get(), import.Get());
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
    const CBstr wide = Wide("k");
    const BSTR key = wide.Get();
    EXPECT_EQ(walk->FindElement(key, nullptr), E_POINTER); // nothing is loaded yet
    const ElementPtr root = LoadAndFind("<r/>", "r");
    const ListPtr list = ChildrenOf(root);
    for (const HRESULT result :
         {import->QueryInterface(IID_IUnknown, nullptr), walk->FindElement(key, nullptr),
          walk->GetElementList(key, nullptr), root->QueryInterface(IID_IUnknown, nullptr), root->GetText(nullptr),
          root->GetChildText(key, nullptr), root->GetAttribute(key, nullptr), root->GetChildren(nullptr),
          root->GetChildrenByName(key, nullptr), root->GetTagName(nullptr),
          root->SelectChildren(key, key, key, nullptr), list->Next(nullptr), list->Item(0, nullptr),
          list->Count(nullptr)})
        EXPECT_EQ(result, E_POINTER);
}

} // namespace
