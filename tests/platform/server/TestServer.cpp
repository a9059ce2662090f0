// An in-process server whose one class has objects that can do nothing.
#include "platform/server/TestServer.h"
#include "platform/server/CountedObjects.h"

namespace {

CCountedFactory factory;

} // namespace

STDAPI_EXPORT DllGetClassObject(REFCLSID clsid, REFIID iid, void** object)
{
    *object = nullptr;
    return clsid == CLSID_TestServer ? factory.QueryInterface(iid, object) : CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI_EXPORT DllCanUnloadNow()
{
    return factory.alive == 0 && factory.references == 0 ? S_OK : S_FALSE;
}
