#include "symbhost/plugin/HostMemory.h"

#include "platform/mfc/Exceptions.h"

CElementArray::CElementArray(DWORD limit) : capacity(limit)
{
    if (limit == 0)
        return;
    items = static_cast<BrowseElement*>(CoTaskMemAlloc(limit * sizeof(BrowseElement)));
    if (!items)
        AfxThrowMemoryException();
}

CElementArray::~CElementArray()
{
    for (DWORD index = 0; index < count; ++index) {
        CoTaskMemFree(items[index].name);
        CoTaskMemFree(items[index].itemId);
    }
    CoTaskMemFree(items);
}
