#pragma once

#include "korvaproservices/CReferenceCount.h"
#include "korvaproservices/CSelection.h"
#include "korvaproservices/KorvaProServices.h"

#include <vector>

class CDocument;
template <class Object>
class CFreeList;

// A caller's list of elements; made, kept and reused by its document.
//
// Its elements are given, or found by a selection: Next looks for one element
// at a time, so that asking for the first one does not cost the whole
// selection; Item and Count collect it once.
class CElementList final : public WalkList
{
public:
    explicit CElementList(CDocument& owner) : document(owner) {}

    // Begins a new life with one reference; the caller sets the selection or the elements before it hands the list out.
    void Begin() noexcept;
    CSelection& Selection() noexcept { return selection; }
    // The list's elements, for the caller to fill: there is no selection.
    std::vector<pugi::xml_node>& Collection() noexcept
    {
        isCollected = true;
        return collected;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE Next(WalkElement** element) override;
    HRESULT STDMETHODCALLTYPE Item(LONG index, WalkElement** element) override;
    HRESULT STDMETHODCALLTYPE Count(LONG* count) override;

private:
    friend class CFreeList<CElementList>;

    const std::vector<pugi::xml_node>& Collected();
    // The element behind the last one delivered; null past the end.
    pugi::xml_node Upcoming() const;

    CReferenceCount references;
    CDocument& document;
    CSelection selection;
    std::size_t delivered = 0; // elements by Next
    pugi::xml_node position;   // of the last one
    bool isCollected = false;
    std::vector<pugi::xml_node> collected;
    CElementList* nextIdle = nullptr;
};
