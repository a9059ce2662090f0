#pragma once

#include "korvaproservices/CDocumentObject.h"
#include "korvaproservices/KorvaProServices.h"

#include <vector>

// A caller's list of elements.
class CElementList final : public CDocumentObject<CElementList, WalkList, IID_WalkList>
{
public:
    static CSpareMemory& MemoryIn(CDocument& document) { return document.ListMemory(); }

    // An empty list. May raise std::bad_alloc.
    static CInterfacePtr<CElementList> Make(CDocument& document)
    {
        return CInterfacePtr<CElementList>::Adopt(new (document) CElementList(document));
    }

    // Before the list is handed out. May raise std::bad_alloc.
    void Add(pugi::xml_node element)
    {
        if (first)
            others.push_back(element);
        else
            first = element;
    }

    HRESULT STDMETHODCALLTYPE Next(WalkElement** element) override;
    HRESULT STDMETHODCALLTYPE Item(LONG index, WalkElement** element) override;
    HRESULT STDMETHODCALLTYPE Count(LONG* count) override;

private:
    explicit CElementList(CDocument& owner) noexcept : CDocumentObject(owner) {}

    std::size_t Size() const noexcept { return first ? 1 + others.size() : 0; }
    pugi::xml_node At(std::size_t index) const { return index == 0 ? first : others[index - 1]; }

    // Most lists have one element, which takes no memory of its own.
    pugi::xml_node first;
    std::vector<pugi::xml_node> others;
    std::size_t delivered = 0; // by Next
};
