#pragma once

#include "symb/AddressDescriptor.h"
#include "symb/PropertyEntry.h"

#include "platform/mfc/CHeapFree.h"
#include "platform/mfc/CString.h"

#include <memory>

// What the lookup found out about a symbol, before it is handed to the host.
struct ResolvedSymbol
{
    AddressDescriptor descriptor{};
    CString typeName;           // as shown to people
    LPCSTR customerString = ""; // the variable's
    CString address;
    CString comment;
    bool hasAddressProperty = false; // the address is a property too
};

// The records a host is given; owned here until they are released to it.
struct HostRecords
{
    std::unique_ptr<AddressDescriptor, CHeapFree> descriptor; // the host frees it with free
    std::unique_ptr<PropertyEntry[]> properties;              // the host frees it with delete[]
    DWORD propertyCount = 0;
};

// Raises CMemoryException or std::bad_alloc.
HostRecords MakeHostRecords(const ResolvedSymbol& symbol);
