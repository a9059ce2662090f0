#include "platform/com/ClassObject.h"
#include "platform/mfc/CInterfacePtr.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>

namespace {

// A class object, which lives as a variable and stands for its objects too.
class CCountedFactory : public IClassFactory
{
public:
    virtual ~CCountedFactory() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        *object = iid == IID_IClassFactory && isFactory ? this : nullptr;
        return *object ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references); }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID iid, void** object) override
    {
        *object = iid == IID_IUnknown ? this : nullptr;
        return *object ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return E_NOTIMPL; }

    bool isFactory = true;
    int references = 0;
};

constexpr CLSID kClass = {0x11111111, 0x2222, 0x3333, {1, 2, 3, 4, 5, 6, 7, 8}};
constexpr CLSID kOtherClass = {0x11111111, 0x2222, 0x3333, {1, 2, 3, 4, 5, 6, 7, 9}};

HRESULT Create(REFCLSID clsid, IUnknown** object)
{
    return CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, reinterpret_cast<void**>(object));
}

DWORD Register(IUnknown* factory)
{
    DWORD cookie = 0;
    EXPECT_EQ(CoRegisterClassObject(kClass, factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie), S_OK);
    return cookie;
}

class ClassObject : public testing::Test
{
protected:
    void SetUp() override { ASSERT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK); }
    void TearDown() override
    {
        CoUninitialize();
        EXPECT_EQ(factory.references, 0);
    }

    CCountedFactory factory;
};

TEST(Com, NeedsInitialisation)
{
    IUnknown* object;
    CoUninitialize(); // one too many undoes nothing
    EXPECT_EQ(Create(kClass, &object), CO_E_NOTINITIALIZED);
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_FALSE);
    std::thread([] {
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
        CoUninitialize();
    }).join();
    CoUninitialize();
    EXPECT_EQ(Create(kClass, &object), REGDB_E_CLASSNOTREG); // initialised twice, so still
    CoUninitialize();
    EXPECT_EQ(Create(kClass, &object), CO_E_NOTINITIALIZED);
}

TEST_F(ClassObject, NewestRegistrationWins)
{
    CCountedFactory newer;
    const DWORD oldCookie = Register(&factory);
    const DWORD newCookie = Register(&newer);
    EXPECT_NE(oldCookie, newCookie);

    CInterfacePtr<IUnknown> object;
    ASSERT_EQ(Create(kClass, object.Put()), S_OK);
    EXPECT_EQ(object.Get(), &newer);
    newer.AddRef();
    auto adopted = CInterfacePtr<IUnknown>::Adopt(&newer);
    object = std::move(adopted); // gives the reference back that it held
    EXPECT_EQ(newer.references, 2);
    object.Release();
    EXPECT_EQ(CoRevokeClassObject(newCookie), S_OK);
    EXPECT_EQ(newer.references, 0);
    EXPECT_EQ(CoRevokeClassObject(newCookie), CO_E_OBJNOTREG);

    ASSERT_EQ(Create(kClass, object.Put()), S_OK);
    EXPECT_EQ(object.Get(), &factory);
    EXPECT_EQ(factory.references, 2); // the registration's own is one
    EXPECT_EQ(Create(kOtherClass, object.Put()), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(CoRevokeClassObject(oldCookie), S_OK);
    EXPECT_EQ(Create(kClass, object.Put()), REGDB_E_CLASSNOTREG);
}

TEST_F(ClassObject, FailuresLeaveNothingBehind)
{
    const DWORD cookie = Register(&factory);
    const auto expectFailure = [this](IUnknown* outer, REFIID iid, HRESULT result) {
        void* object = &factory;
        EXPECT_EQ(CoCreateInstance(kClass, outer, CLSCTX_INPROC_SERVER, iid, &object), result);
        EXPECT_EQ(object, nullptr);
    };
    EXPECT_EQ(CoCreateInstance(kClass, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, nullptr), E_POINTER);
    expectFailure(&factory, IID_IUnknown, CLASS_E_NOAGGREGATION);
    expectFailure(nullptr, kOtherClass, E_NOINTERFACE);
    factory.isFactory = false;
    expectFailure(nullptr, IID_IUnknown, E_NOINTERFACE);
    EXPECT_EQ(CoRevokeClassObject(cookie), S_OK);

    DWORD none = 1;
    EXPECT_EQ(CoRegisterClassObject(kClass, nullptr, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &none), E_INVALIDARG);
    EXPECT_EQ(CoRegisterClassObject(kClass, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, nullptr), E_INVALIDARG);
}

// Revokes itself and throws: neither deadlocks nor loses a reference.
class CRevokingFactory : public CCountedFactory
{
public:
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID, void**) override
    {
        EXPECT_EQ(CoRevokeClassObject(cookie), S_OK);
        EXPECT_GT(references, 0);
        throw std::runtime_error("no object today");
    }

    DWORD cookie = 0;
};

TEST_F(ClassObject, MayCallBackAndThrow)
{
    CRevokingFactory revoking;
    revoking.cookie = Register(&revoking);
    CInterfacePtr<IUnknown> object;
    EXPECT_THROW(Create(kClass, object.Put()), std::runtime_error);
    EXPECT_EQ(revoking.references, 0);
    EXPECT_EQ(Create(kClass, object.Put()), REGDB_E_CLASSNOTREG);
}

} // namespace
