#include "symbkds/resolve/ResolvedSymbol.h"

#include "platform/mfc/COleVariant.h"
#include "platform/mfc/Exceptions.h"
#include "platform/win32/CodePage.h"
#include "symbkds/model/ElementaryTypes.h"

namespace {

constexpr DWORD kFixedProperties = 6;

void SetNumber(PropertyEntry& entry, DWORD identifier, DWORD number)
{
    entry.identifier = identifier;
    entry.value = COleVariant(static_cast<LONG>(number)).Detach();
}

void SetText(PropertyEntry& entry, DWORD identifier, LPCSTR text, UINT codePage)
{
    entry.identifier = identifier;
    entry.value = COleVariant(text, codePage).Detach();
}

} // namespace

HostRecords MakeHostRecords(const ResolvedSymbol& symbol)
{
    HostRecords records;
    records.propertyCount = symbol.hasAddressProperty ? kFixedProperties + 1 : kFixedProperties;
    records.properties = std::make_unique<PropertyEntry[]>(records.propertyCount);
    PropertyEntry* entry = records.properties.get();
    SetNumber(entry[0], PROP_BLOCK, symbol.descriptor.block);
    SetNumber(entry[1], PROP_OFFSET, symbol.descriptor.offset);
    SetNumber(entry[2], PROP_SIZE, symbol.descriptor.size);
    SetText(entry[3], PROP_TYPE_NAME, symbol.typeName, CP_UTF8);
    entry[4].identifier = PROP_KIND_NAME;
    GetKindName(symbol.descriptor.typeCode, entry[4].value);
    SetText(entry[5], PROP_CUSTOMER_STRING, symbol.customerString, CP_UTF8);
    if (symbol.hasAddressProperty)
        SetText(entry[6], PROP_ADDRESS, symbol.address, CP_THREAD_ACP);

    records.descriptor.reset(static_cast<AddressDescriptor*>(std::malloc(sizeof(AddressDescriptor))));
    if (!records.descriptor)
        AfxThrowMemoryException();
    *records.descriptor = symbol.descriptor;
    return records;
}
