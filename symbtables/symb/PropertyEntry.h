#pragma once

#include "platform/com/Variant.h"

#include <type_traits>

// What PropertyEntry::identifier names.
constexpr DWORD PROP_KIND_NAME = 5001;       // VT_BSTR: "EDT", "ARRAY DDT", "Unknown" ... of the descriptor's type code
constexpr DWORD PROP_BLOCK = 5003;           // VT_I4: the descriptor's block
constexpr DWORD PROP_OFFSET = 5004;          // VT_I4: the descriptor's offset, bytes
constexpr DWORD PROP_SIZE = 5005;            // VT_I4: the descriptor's size, bytes
constexpr DWORD PROP_TYPE_NAME = 5007;       // VT_BSTR: the value's type as shown to people
constexpr DWORD PROP_CUSTOMER_STRING = 5010; // VT_BSTR: CustomerString of the root variable
constexpr DWORD PROP_ADDRESS = 5011;         // VT_BSTR: the address text; only for a plain name that has one

// One property of a resolved symbol.
//
// The library creates the entries as one array with `new PropertyEntry[count]`,
// which keeps the count in front of the first entry; the host releases it with
// `delete[]`, which clears every value. On 32 bits the record is packed to 4
// bytes: VARIANT alone would ask for 8.
#if UINTPTR_MAX == 0xFFFFFFFF
#pragma pack(push, 4)
#endif
struct PropertyEntry
{
    DWORD identifier;
    VARIANT value;

    PropertyEntry() : identifier(0) { VariantInit(&value); }
    PropertyEntry(const PropertyEntry&) = delete;
    PropertyEntry& operator=(const PropertyEntry&) = delete;
    ~PropertyEntry()
    {
        identifier = 0;
        VariantClear(&value);
    }
};
#if UINTPTR_MAX == 0xFFFFFFFF
#pragma pack(pop)
#endif

static_assert(std::is_standard_layout_v<PropertyEntry>);
static_assert(offsetof(PropertyEntry, identifier) == 0);
static_assert(sizeof(void*) != 4 || (sizeof(PropertyEntry) == 20 && offsetof(PropertyEntry, value) == 4));
static_assert(sizeof(void*) != 8 || (sizeof(PropertyEntry) == 32 && offsetof(PropertyEntry, value) == 8));
