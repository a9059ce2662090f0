// What a lookup hands over, read by offset and given back.
#include "support/Elementary.h"
#include "support/HostView.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <new>

namespace {

constexpr std::size_t kDescriptorBytes = 76;
constexpr std::size_t kEntryBytes = kWideRecords ? 32 : 20;
constexpr std::size_t kEntryValue = kWideRecords ? 8 : 4;
constexpr std::size_t kValueData = 8; // of the union inside a VARIANT

std::string Hexadecimal(DWORD value)
{
    char text[16];
    std::snprintf(text, sizeof(text), "0x%08X", static_cast<unsigned>(value));
    return text;
}

void ReadDescriptor(const void* record, HostSymbol& symbol)
{
    symbol.typeCode = ReadAt<DWORD>(record, 0);
    symbol.extraction = ReadAt<DWORD>(record, 4);
    symbol.indirection = ReadAt<DWORD>(record, 8);
    symbol.block = ReadAt<WORD>(record, 12);
    symbol.offset = ReadAt<DWORD>(record, 16);
    symbol.size = ReadAt<DWORD>(record, 20);
    symbol.bit = ReadAt<BYTE>(record, 24);
    symbol.relativeOffset = ReadAt<DWORD>(record, 28);
    symbol.relativeSize = ReadAt<WORD>(record, 36);
    symbol.accessRight = ReadAt<DWORD>(record, 72);

    // The rest, padding and the sum of an identification that is all zero included, is constant.
    unsigned char rest[kDescriptorBytes];
    std::memcpy(rest, record, kDescriptorBytes);
    std::memset(rest, 0, 14);
    std::memset(rest + 16, 0, 9);
    std::memset(rest + 28, 0, 4);
    std::memset(rest + 36, 0, 2);
    std::memset(rest + 72, 0, 4);
    for (std::size_t i = 0; i < kDescriptorBytes; ++i) {
        if (rest[i] != (i == 40 ? 1 : 0))
            symbol.deviation += " byte " + std::to_string(i) + " of the descriptor is " + std::to_string(rest[i]);
    }
}

struct PropertyRow
{
    DWORD identifier;
    VARTYPE variantType;
};
constexpr PropertyRow kProperties[] = {{5003, 3}, {5004, 3}, {5005, 3}, {5007, 8}, {5001, 8}, {5010, 8}, {5011, 8}};

std::string ReadText(const char* entry)
{
    LPCWSTR text = ReadAt<LPCWSTR>(entry, kEntryValue + kValueData);
    if (!text)
        return "";
    if (SysStringLen(ReadAt<BSTR>(entry, kEntryValue + kValueData)) != std::char_traits<WCHAR>::length(text))
        return "a text whose length is wrong";
    return Narrow(text);
}

// Whether a name is one step, with or without a bit number: only then is the address among the properties.
bool IsOneStep(std::string_view name)
{
    name.remove_prefix(std::min(name.find_first_not_of(" ."), name.size()));
    std::size_t end = name.find_first_of(".[");
    return end == std::string_view::npos ||
           (name[end] == '.' && name.find_first_not_of("0123456789-", end + 1) == std::string_view::npos);
}

void ReadProperties(const char* entries, DWORD count, bool oneStep, HostSymbol& symbol)
{
    if (count != (oneStep && !symbol.address.empty() ? 7U : 6U)) {
        symbol.deviation += " " + std::to_string(count) + " properties";
        return;
    }
    for (DWORD i = 0; i < count; ++i) {
        const char* entry = entries + i * kEntryBytes;
        if (ReadAt<DWORD>(entry, 0) != kProperties[i].identifier ||
            ReadAt<VARTYPE>(entry, kEntryValue) != kProperties[i].variantType) {
            symbol.deviation += " property " + std::to_string(i) + " is of another kind";
            return;
        }
    }
    const DWORD numbers[] = {symbol.block, symbol.offset, symbol.size};
    for (std::size_t i = 0; i < 3; ++i) {
        if (ReadAt<DWORD>(entries + i * kEntryBytes, kEntryValue + kValueData) != numbers[i])
            symbol.deviation += " property " + std::to_string(i) + " differs from the descriptor";
    }
    symbol.typeName = ReadText(entries + 3 * kEntryBytes);
    symbol.kindName = ReadText(entries + 4 * kEntryBytes);
    symbol.customerString = ReadText(entries + 5 * kEntryBytes);
    if (count == 7 && ReadText(entries + 6 * kEntryBytes) != symbol.address)
        symbol.deviation += " the address property differs";
    const char* kind = (symbol.typeCode & 0x88) == 0x88     ? "ARRAY DDT"
                       : (symbol.typeCode & 0x148) == 0x148 ? "EDT"
                                                            : "Unknown";
    if (symbol.kindName != kind)
        symbol.deviation += " the kind is " + symbol.kindName;
}

std::string DescribeValue(const HostSymbol& symbol)
{
    std::string code = TypeCodeName(symbol.typeCode);
    std::string text = symbol.typeName + (code == symbol.typeName ? "" : " as " + code);
    text += " +" + std::to_string(symbol.offset) + " size " + std::to_string(symbol.size);
    if (symbol.block != 0)
        text += " block " + std::to_string(symbol.block);
    if (symbol.extraction == 2)
        text += " bit " + std::to_string(symbol.bit);
    else if (symbol.extraction != 1 || symbol.bit != 0xFF)
        text += " extraction " + std::to_string(symbol.extraction) + "/" + std::to_string(symbol.bit);
    if (symbol.indirection == 2)
        text += " by reference";
    else if (symbol.indirection != 1)
        text += " indirection " + std::to_string(symbol.indirection);
    if (symbol.relativeOffset != 0 || symbol.relativeSize != 0)
        text += " relative +" + std::to_string(symbol.relativeOffset) + "/" + std::to_string(symbol.relativeSize);
    if (symbol.accessRight != 3)
        text += " access " + std::to_string(symbol.accessRight);
    return text;
}

} // namespace

std::string ResultName(HRESULT result)
{
    static const std::map<DWORD, const char*> names = {{0, "S_OK"},
                                                       {0xFFFFFFFF, "refused"},
                                                       {0x80004001, "E_NOTIMPL"},
                                                       {0x80070057, "E_INVALIDARG"},
                                                       {0x8007000E, "E_OUTOFMEMORY"}};
    const auto found = names.find(static_cast<DWORD>(result));
    return found == names.end() ? Hexadecimal(static_cast<DWORD>(result)) : found->second;
}

std::string TypeCodeName(DWORD typeCode)
{
    if (typeCode == 0x208)
        return "structured";
    if (typeCode == 2)
        return "unclassified";
    for (const Elementary& row : kElementary) {
        if (typeCode == (row.code << 16 | 0x0148))
            return row.name;
        if (typeCode == (row.code << 16 | 0x1088))
            return row.name + std::string("[]");
    }
    return Hexadecimal(typeCode);
}

std::string HostSymbol::Text() const
{
    std::string text = result == 0 ? DescribeValue(*this) : ResultName(result);
    if (result == 0) {
        if (!address.empty())
            text += " at " + address;
        if (!comment.empty())
            text += " '" + comment + "'";
        if (!customerString.empty())
            text += " customer \"" + customerString + "\"";
    }
    if (!messages.empty())
        text += ": " + messages;
    else if (result != 0)
        text += ", silent";
    return deviation.empty() ? text : text + " DEVIATION:" + deviation;
}

CHostLookup::~CHostLookup()
{
    std::free(descriptor);
    if (!properties)
        return;
    // As the compiler of the plug-in deletes an array whose entries have a destructor.
    char* const entries = static_cast<char*>(properties);
    for (DWORD i = 0; i < count; ++i)
        VariantClear(reinterpret_cast<VARIANT*>(entries + i * kEntryBytes + kEntryValue));
    ::operator delete[](entries - sizeof(std::size_t));
}

HRESULT CHostLookup::Ask(const CHostTable& table, LPCSTR name, DWORD selector)
{
    return table->SearchAndGetFF(selector, name, address, comment, &descriptor, &count, &properties);
}

HostSymbol CHostTable::Resolve(const char* name) const
{
    HostSymbol symbol;
    CHostLookup lookup;
    symbol.result = lookup.Ask(*this, name);
    symbol.messages = TakeMessages();
    if (symbol.result != 0) {
        if (lookup.descriptor || lookup.properties || lookup.count != 0)
            symbol.deviation = " outputs are set";
        return symbol;
    }
    symbol.address = lookup.address.View();
    symbol.comment = lookup.comment.View();
    ReadDescriptor(lookup.descriptor, symbol);
    const char* const entries = static_cast<const char*>(lookup.properties);
    ReadProperties(entries, lookup.count, IsOneStep(name), symbol);
    if (ReadAt<DWORD>(entries - sizeof(std::size_t), 0) != lookup.count)
        symbol.deviation += " the array counts other entries";
    return symbol;
}
