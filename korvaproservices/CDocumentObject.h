#pragma once

#include "korvaproservices/CDocument.h"

#include <utility>

// What elements and lists have in common: one interface, a count of references
// and the document they look at. `Object` is the derived class, whose MemoryIn
// says which memory of a document is for such objects.
template <class Object, class Interface, const IID& interfaceId>
class CDocumentObject : public Interface
{
public:
    static void* operator new(std::size_t bytes, CDocument& owner) { return Object::MemoryIn(owner).Take(bytes); }
    static void operator delete(void* memory, CDocument& owner) { Object::MemoryIn(owner).GiveBack(memory); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) final
    {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        if (iid != IID_IUnknown && iid != interfaceId)
            return E_NOINTERFACE;
        AddRef();
        *object = static_cast<Interface*>(this);
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() final { return ++references; }

    ULONG STDMETHODCALLTYPE Release() final
    {
        const ULONG left = --references;
        if (left == 0) {
            const CInterfacePtr<CDocument> last = std::move(document); // outlives the object, as the library must
            Object* const object = static_cast<Object*>(this);
            object->~Object();
            Object::MemoryIn(*last.Get()).GiveBack(object);
        }
        return left;
    }

protected:
    explicit CDocumentObject(CDocument& owner) noexcept : document(&owner) {}
    ~CDocumentObject() = default;

    CInterfacePtr<CDocument> document;

private:
    ULONG references = 1; // no lock: one thread at a time
};
