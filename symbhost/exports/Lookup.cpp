#include "symbhost/exports/Lookup.h"

#include "platform/mfc/Conversion.h"
#include "platform/win32/CodePage.h"
#include "symbhost/plugin/HostMemory.h"

namespace {

// The texts among the properties, each converted with the code page with which the plug-in made it.
void TakeTexts(const PropertyEntry* properties, DWORD count, LookupAnswer& symbol)
{
    for (const PropertyEntry* entry = properties; entry != properties + count; ++entry) {
        if (entry->value.vt != VT_BSTR || !entry->value.bstrVal)
            continue;
        const BSTR bstr = entry->value.bstrVal;
        const std::basic_string_view<WCHAR> text(bstr, SysStringLen(bstr));
        if (entry->identifier == PROP_TYPE_NAME)
            symbol.typeName = Narrow(text, CP_UTF8);
        else if (entry->identifier == PROP_CUSTOMER_STRING)
            symbol.customerString = Narrow(text, CP_UTF8);
        else if (entry->identifier == PROP_KIND_NAME)
            symbol.kindName = Narrow(text, CP_THREAD_ACP);
    }
}

} // namespace

LookupAnswer LookUp(CSymb& table, CConsoleSink& sink, const std::string& name)
{
    LookupAnswer symbol{};
    symbol.name = name;
    if (name.find('\0') != std::string::npos) {
        symbol.result = E_INVALIDARG;
        symbol.message = "the name holds a null";
        return symbol;
    }
    CString address;
    CString comment;
    AddressDescriptor* descriptor = nullptr;
    PropertyEntry* properties = nullptr;
    DWORD propertyCount = 0;
    sink.Collect();
    symbol.result = table.SearchAndGetFF(0, name.c_str(), address, comment, &descriptor, &propertyCount, &properties);
    const DescriptorHolder descriptorHolder(descriptor);
    const PropertiesHolder propertiesHolder(properties);
    symbol.message = sink.TakeCollected();
    if (!symbol.IsResolved() || !descriptor)
        return symbol;
    symbol.address = address;
    symbol.comment = comment;
    symbol.descriptor = *descriptor;
    TakeTexts(properties, propertyCount, symbol);
    return symbol;
}

bool IsAnswered(CSymb& table, const std::string& name)
{
    CString address;
    CString comment;
    AddressDescriptor* descriptor = nullptr;
    PropertyEntry* properties = nullptr;
    DWORD propertyCount = 0;
    const HRESULT result =
        table.SearchAndGetFF(0, name.c_str(), address, comment, &descriptor, &propertyCount, &properties);
    const DescriptorHolder descriptorHolder(descriptor);
    const PropertiesHolder propertiesHolder(properties);
    return SUCCEEDED(result);
}
