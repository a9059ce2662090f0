#pragma once

#include "korvaproservices/CDocumentObject.h"
#include "korvaproservices/KorvaProServices.h"

// A caller's view of one element.
class CElement final : public CDocumentObject<CElement, WalkElement, IID_WalkElement>
{
public:
    static CSpareMemory& MemoryIn(CDocument& document) { return document.ElementMemory(); }

    CElement(CDocument& owner, pugi::xml_node element) noexcept : CDocumentObject(owner), node(element) {}

    HRESULT STDMETHODCALLTYPE GetText(BSTR* text) override;
    HRESULT STDMETHODCALLTYPE GetChildText(BSTR tag, BSTR* text) override;
    HRESULT STDMETHODCALLTYPE GetAttribute(BSTR name, BSTR* value) override;
    HRESULT STDMETHODCALLTYPE GetChildren(WalkList** list) override;
    HRESULT STDMETHODCALLTYPE GetChildrenByName(BSTR tag, WalkList** list) override;
    HRESULT STDMETHODCALLTYPE GetTagName(BSTR* name) override;
    HRESULT STDMETHODCALLTYPE SelectChildren(BSTR tag, BSTR attribute, BSTR value, WalkList** list) override;

private:
    const pugi::xml_node node;
};
