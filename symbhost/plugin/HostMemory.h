// Holders for what the plug-in hands to its host, each with the deallocator of its contract.
#pragma once

#include "platform/com/TaskMemory.h"
#include "platform/mfc/CHeapFree.h"
#include "symb/AddressDescriptor.h"
#include "symb/BrowseElement.h"
#include "symb/PropertyEntry.h"

#include <memory>

using DescriptorHolder = std::unique_ptr<AddressDescriptor, CHeapFree>;

// `delete[]`, which clears the values.
using PropertiesHolder = std::unique_ptr<PropertyEntry[]>;

// The array of a listing with properties and the texts of its elements.
class CElementArray
{
public:
    // Room for `limit` elements; 0: nothing yet, the plug-in makes room as it needs. Raises CMemoryException.
    explicit CElementArray(DWORD limit);
    CElementArray(const CElementArray&) = delete;
    CElementArray& operator=(const CElementArray&) = delete;
    ~CElementArray();

    // For the plug-in to fill.
    BrowseElement* items = nullptr;
    DWORD count = 0;
    DWORD capacity = 0;
};
