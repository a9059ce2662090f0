// A class object and objects that count how many of them are alive.
#pragma once

#include "platform/com/InterfacePtr.h"
#include "platform/com/Unknown.h"

#include <atomic>

// An object with no other interface than IUnknown.
class CCountedObject final : public IUnknown
{
public:
    explicit CCountedObject(std::atomic<int>& counter) : alive(counter) { ++alive; }
    CCountedObject(const CCountedObject&) = delete;
    CCountedObject& operator=(const CCountedObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        *object = iid == IID_IUnknown ? this : nullptr;
        return *object ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const int left = --references;
        if (left == 0)
            delete this;
        return static_cast<ULONG>(left);
    }

private:
    ~CCountedObject() { --alive; }

    std::atomic<int>& alive;
    std::atomic<int> references = 1;
};

// Its class object, which lives as a variable.
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
        CInterfacePtr<CCountedObject> created;
        *created.Put() = new CCountedObject(alive);
        return created->QueryInterface(iid, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return E_NOTIMPL; }

    bool isFactory = true;
    std::atomic<int> references = 0;
    std::atomic<int> alive = 0;
};
