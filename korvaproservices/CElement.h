#pragma once

#include "korvaproservices/CReferenceCount.h"
#include "korvaproservices/KorvaProServices.h"

#include <pugixml.hpp>

class CDocument;
template <class Object>
class CFreeList;

// A caller's view of one element; made, kept and reused by its document.
class CElement final : public WalkElement
{
public:
    explicit CElement(CDocument& owner) : document(owner) {}

    // Begins a new life with one reference.
    void Begin(pugi::xml_node element) noexcept
    {
        references.Reset();
        node = element;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE GetText(BSTR* text) override;
    HRESULT STDMETHODCALLTYPE GetChildText(BSTR tag, BSTR* text) override;
    HRESULT STDMETHODCALLTYPE GetAttribute(BSTR name, BSTR* value) override;
    HRESULT STDMETHODCALLTYPE GetChildren(WalkList** list) override;
    HRESULT STDMETHODCALLTYPE GetChildrenByName(BSTR tag, WalkList** list) override;
    HRESULT STDMETHODCALLTYPE GetTagName(BSTR* name) override;
    HRESULT STDMETHODCALLTYPE SelectChildren(BSTR tag, BSTR attribute, BSTR value, WalkList** list) override;

private:
    friend class CFreeList<CElement>;

    CReferenceCount references;
    CDocument& document;
    pugi::xml_node node;
    CElement* nextIdle = nullptr;
};
