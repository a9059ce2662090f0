#include "platform/com/ClassObject.h"
#include "platform/server/CountedObjects.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>
#include <vector>

namespace {

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
        EXPECT_EQ(factory.alive, 0);
    }

    CCountedFactory factory;
};

TEST(Com, NeedsInitialisation)
{
    IUnknown* object;
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
    EXPECT_EQ(newer.alive, 1);
    object.Release();
    EXPECT_EQ(CoRevokeClassObject(newCookie), S_OK);
    EXPECT_EQ(newer.references, 0);
    EXPECT_EQ(CoRevokeClassObject(newCookie), CO_E_OBJNOTREG);

    ASSERT_EQ(Create(kClass, object.Put()), S_OK);
    EXPECT_EQ(factory.alive, 1);
    EXPECT_EQ(factory.references, 1); // the registration's own
    EXPECT_EQ(Create(kOtherClass, object.Put()), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(CoRevokeClassObject(oldCookie), S_OK);
    EXPECT_EQ(Create(kClass, object.Put()), REGDB_E_CLASSNOTREG);
}

TEST_F(ClassObject, FailuresLeaveNothingBehind)
{
    const DWORD cookie = Register(&factory);
    IUnknown* const poison = &factory;
    IUnknown* object = poison;
    void** const out = reinterpret_cast<void**>(&object);
    EXPECT_EQ(CoCreateInstance(kClass, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(CoCreateInstance(kClass, poison, CLSCTX_INPROC_SERVER, IID_IUnknown, out), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
    object = poison;
    EXPECT_EQ(CoCreateInstance(kClass, nullptr, CLSCTX_INPROC_SERVER, kOtherClass, out), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    factory.isFactory = false;
    object = poison;
    EXPECT_EQ(Create(kClass, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
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

TEST_F(ClassObject, ThreadsCreateWhileOthersRegister)
{
    const DWORD cookie = Register(&factory);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([this, registers = i % 2 == 0] {
            for (int round = 0; round < 200; ++round) {
                const DWORD own = registers ? Register(&factory) : 0;
                CInterfacePtr<IUnknown> object;
                EXPECT_EQ(Create(kClass, object.Put()), S_OK);
                EXPECT_EQ(CoRevokeClassObject(own), registers ? S_OK : CO_E_OBJNOTREG);
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(CoRevokeClassObject(cookie), S_OK);
}

} // namespace
