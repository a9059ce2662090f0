#include "platform/com/ClassObject.h"

#include "platform/mfc/CInterfacePtr.h"
#include "platform/posix/InprocServers.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <mutex>
#include <new>
#include <vector>

namespace {

std::atomic<int> initialisedThreads = 0;
thread_local int initialisations = 0; // of this thread

// A class object of this process. The reference is given back with the last holder.
struct Registration
{
    CLSID clsid;
    CInterfacePtr<IUnknown> classObject;
    DWORD cookie;
};
using RegistrationPtr = std::shared_ptr<Registration>;

// The registered class objects, the oldest first. The lock is not held while
// their code runs, not even for Release.
struct RegistrationTable
{
    std::mutex lock;
    std::vector<RegistrationPtr> registrations;
    DWORD lastCookie = 0;
};

// Never destroyed: class objects whose code is gone must not be released when the program ends.
RegistrationTable& Registrations()
{
    static RegistrationTable& table = *new RegistrationTable;
    return table;
}

RegistrationPtr FindRegistration(REFCLSID clsid)
{
    RegistrationTable& table = Registrations();
    const std::lock_guard guard(table.lock);
    const auto newest = std::find_if(table.registrations.rbegin(), table.registrations.rend(),
                                     [&clsid](const RegistrationPtr& entry) { return entry->clsid == clsid; });
    return newest != table.registrations.rend() ? *newest : nullptr;
}

// What the class object throws passes through.
HRESULT CreateInProcess(REFCLSID clsid, REFIID iid, void** object)
{
    const RegistrationPtr registration = FindRegistration(clsid);
    const GetClassObjectFunction getClassObject = registration ? nullptr : FindInprocServer(clsid);
    if (!registration && !getClassObject)
        return REGDB_E_CLASSNOTREG;
    CInterfacePtr<IClassFactory> factory;
    const HRESULT result = registration
                               ? registration->classObject->QueryInterface(IID_IClassFactory, factory.PutVoid())
                               : getClassObject(clsid, IID_IClassFactory, factory.PutVoid());
    if (FAILED(result))
        return result;
    return factory ? factory->CreateInstance(nullptr, iid, object) : E_NOINTERFACE;
}

} // namespace

HRESULT CoInitializeEx(void* reserved, DWORD flags)
{
    if (reserved || flags != COINIT_MULTITHREADED)
        return E_INVALIDARG;
    if (initialisations++ > 0)
        return S_FALSE;
    ++initialisedThreads;
    return S_OK;
}

void CoUninitialize()
{
    if (initialisations > 0 && --initialisations == 0)
        --initialisedThreads;
}

HRESULT CoCreateInstance(REFCLSID clsid, IUnknown* outer, DWORD context, REFIID iid, void** object)
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (initialisedThreads == 0)
        return CO_E_NOTINITIALIZED;
    if (outer)
        return CLASS_E_NOAGGREGATION;
    if ((context & CLSCTX_INPROC_SERVER) == 0)
        return REGDB_E_CLASSNOTREG;
    const HRESULT result = CreateInProcess(clsid, iid, object);
    if (FAILED(result))
        *object = nullptr;
    return result;
}

HRESULT CoRegisterClassObject(REFCLSID clsid, IUnknown* classObject, DWORD context, DWORD flags, DWORD* cookie)
{
    if (!classObject || !cookie || context != CLSCTX_INPROC_SERVER || flags != REGCLS_MULTIPLEUSE)
        return E_INVALIDARG;
    *cookie = 0;
    try {
        const auto entry = std::make_shared<Registration>();
        entry->clsid = clsid;
        entry->classObject = CInterfacePtr<IUnknown>(classObject);
        RegistrationTable& table = Registrations();
        const std::lock_guard guard(table.lock);
        entry->cookie = table.lastCookie + 1;
        table.registrations.push_back(entry);
        *cookie = ++table.lastCookie;
        return S_OK;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

HRESULT CoRevokeClassObject(DWORD cookie)
{
    RegistrationTable& table = Registrations();
    RegistrationPtr revoked; // outlives the lock
    const std::lock_guard guard(table.lock);
    const auto found = std::ranges::find(table.registrations, cookie, &Registration::cookie);
    if (found == table.registrations.end())
        return CO_E_OBJNOTREG;
    revoked = std::move(*found);
    table.registrations.erase(found);
    return S_OK;
}

void CoFreeUnusedLibraries() {}
