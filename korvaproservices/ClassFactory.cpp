// The class object and what the library exports.
#include "korvaproservices/CKorvaProServices.h"
#include "korvaproservices/ResultOf.h"
#include "platform/mfc/CInterfacePtr.h"

#include <atomic>

namespace {

std::atomic<LONG> lockCount{0};

// The class object. There is one, and it is never destroyed: its references
// only keep the library loaded.
class CClassFactory final : public IClassFactory
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        if (iid != IID_IUnknown && iid != IID_IClassFactory)
            return E_NOINTERFACE;
        AddRef();
        *object = static_cast<IClassFactory*>(this);
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++lockCount); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--lockCount); }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override
    {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        return ResultOf([&] {
            auto component = CInterfacePtr<CKorvaProServices>::Adopt(new CKorvaProServices);
            return component->QueryInterface(iid, object);
        });
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override
    {
        if (lock)
            ++lockCount;
        else
            --lockCount;
        return S_OK;
    }
};

CClassFactory classFactory;

} // namespace

STDAPI_EXPORT DllGetClassObject(REFCLSID clsid, REFIID iid, void** object)
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (clsid != CLSID_KorvaProServices)
        return CLASS_E_CLASSNOTAVAILABLE;
    return classFactory.QueryInterface(iid, object);
}

STDAPI_EXPORT DllCanUnloadNow()
{
    return !CModuleReference::Exists() && lockCount == 0 ? S_OK : S_FALSE;
}
