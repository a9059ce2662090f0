#include "korvaproservices/CElementList.h"

#include "korvaproservices/CDocument.h"
#include "korvaproservices/Guarded.h"

#include <limits>
#include <utility>

namespace {

constexpr std::size_t kMostKeptNodes = 64; // an idle list must not keep a large selection

} // namespace

void CElementList::Begin() noexcept
{
    references.Reset();
    delivered = 0;
    isCollected = false;
}

HRESULT CElementList::QueryInterface(REFIID iid, void** object)
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_WalkList)
        return E_NOINTERFACE;
    AddRef();
    *object = static_cast<WalkList*>(this);
    return S_OK;
}

ULONG CElementList::AddRef()
{
    return references.Increment();
}

ULONG CElementList::Release()
{
    const ULONG left = references.Decrement();
    if (left == 0) {
        if (collected.capacity() > kMostKeptNodes)
            std::vector<pugi::xml_node>().swap(collected);
        document.Recycle(this);
    }
    return left;
}

HRESULT CElementList::Next(WalkElement** element)
{
    return Deliver(element, [&] {
        // Moved only when the element could be made: a call that failed can be repeated.
        const pugi::xml_node next = Upcoming();
        WalkElement* made = document.MakeElement(next);
        if (made) {
            ++delivered;
            position = next;
        }
        return made;
    });
}

pugi::xml_node CElementList::Upcoming() const
{
    if (isCollected)
        return delivered < collected.size() ? collected[delivered] : pugi::xml_node();
    return selection.After(delivered > 0 ? position : selection.Start());
}

HRESULT CElementList::Item(LONG index, WalkElement** element)
{
    if (!element)
        return E_POINTER;
    *element = nullptr;
    return Guarded([&] {
        const std::vector<pugi::xml_node>& nodes = Collected();
        if (index < 0 || std::cmp_greater_equal(index, nodes.size()))
            return E_INVALIDARG;
        *element = document.MakeElement(nodes[static_cast<std::size_t>(index)]);
        return S_OK;
    });
}

HRESULT CElementList::Count(LONG* count)
{
    if (!count)
        return E_POINTER;
    *count = 0;
    return Guarded([&] {
        const std::size_t size = Collected().size();
        if (std::cmp_greater(size, std::numeric_limits<LONG>::max()))
            return E_OUTOFMEMORY;
        *count = static_cast<LONG>(size);
        return S_OK;
    });
}

const std::vector<pugi::xml_node>& CElementList::Collected()
{
    if (!isCollected) {
        std::vector<pugi::xml_node> nodes;
        for (pugi::xml_node node = selection.After(selection.Start()); node; node = selection.After(node))
            nodes.push_back(node);
        collected = std::move(nodes);
        isCollected = true;
    }
    return collected;
}
