#include "korvaproservices/CElementList.h"

#include "korvaproservices/ResultOf.h"

#include <limits>

HRESULT CElementList::Next(WalkElement** element)
{
    return Deliver(element, [&] {
        WalkElement* const made = delivered < Size() ? document->MakeElement(At(delivered)) : nullptr;
        if (made)
            ++delivered; // only now: a call that failed can be repeated
        return made;
    });
}

HRESULT CElementList::Item(LONG index, WalkElement** element)
{
    if (!element)
        return E_POINTER;
    *element = nullptr;
    if (index < 0 || std::cmp_greater_equal(index, Size()))
        return E_INVALIDARG;
    return Deliver(element, [&] { return document->MakeElement(At(static_cast<std::size_t>(index))); });
}

HRESULT CElementList::Count(LONG* count)
{
    if (!count)
        return E_POINTER;
    *count = 0;
    if (std::cmp_greater(Size(), std::numeric_limits<LONG>::max()))
        return E_OUTOFMEMORY;
    *count = static_cast<LONG>(Size());
    return S_OK;
}
