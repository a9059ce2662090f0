// COM as far as the exports of a plug-in go: initialisation and class objects.
#include "platform/mfc/CInterfacePtr.h"
#include "support/FakeComponent.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

HRESULT Create(void** object, IUnknown* outer = nullptr, REFCLSID clsid = CLSID_KorvaProServices)
{
    return CoCreateInstance(clsid, outer, CLSCTX_INPROC_SERVER, IID_IUnknown, object);
}

TEST(Com, NeedsInitialisation)
{
    auto create = [object = CInterfacePtr<IUnknown>()]() mutable {
        return Create(object.PutVoid(), nullptr, {0x11111111, 0x2222, 0x3333, {1, 2, 3, 4, 5, 6, 7, 8}});
    };
    CoUninitialize(); // one too many undoes nothing
    EXPECT_EQ(create(), CO_E_NOTINITIALIZED);
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_FALSE);
    std::thread([] { const CComScope another; }).join();
    CoUninitialize();
    EXPECT_EQ(create(), REGDB_E_CLASSNOTREG); // initialised twice, so still
    CoUninitialize();
    EXPECT_EQ(create(), CO_E_NOTINITIALIZED);
}

TEST(ClassObject, OfTheNewestRegistrationServesUntilItIsRevoked)
{
    CFakeComponent older("");
    CInterfacePtr<IUnknown> object;
    {
        CFakeComponent newer("");
        EXPECT_EQ(Create(object.PutVoid()), S_OK);
        EXPECT_EQ(newer.LivingObjects(), 1);
        object.Release();
        EXPECT_EQ(newer.LivingObjects(), 0);
    }
    EXPECT_EQ(Create(object.PutVoid()), S_OK);
    EXPECT_EQ(older.TakeCalls(), "CreateInstance");
    EXPECT_EQ(CoRevokeClassObject(4711), CO_E_OBJNOTREG);

    EXPECT_EQ(Create(nullptr), E_POINTER);
    void* none = &older;
    EXPECT_EQ(Create(&none, object.Get()), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(none, nullptr);
}

} // namespace
