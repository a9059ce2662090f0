#pragma once

#include "platform/win32/Types.h"

#include <type_traits>

// One symbol of a listing with properties.
//
// The host owns the array of elements and both texts of each element and
// releases every one of them with CoTaskMemFree.
struct BrowseElement
{
    LPWSTR name;      // the entry's text, UTF-16, null-terminated
    LPWSTR itemId;    // the full item identifier, UTF-16, null-terminated
    DWORD kind;       // kLeaf or kBranch
    DWORD reserved12; // always 0
    DWORD reserved16; // always 0
    DWORD reserved20; // always 0
    void* reserved24; // always null
    DWORD reserved28; // always 0

    static constexpr DWORD kLeaf = 2;   // a value of an elementary type
    static constexpr DWORD kBranch = 3; // a value of a derived type
};

static_assert(std::is_standard_layout_v<BrowseElement> && std::is_trivially_copyable_v<BrowseElement>);
static_assert(sizeof(void*) != 4 || sizeof(BrowseElement) == 32, "hosts read this record by offset");
static_assert(sizeof(void*) != 4 ||
              (offsetof(BrowseElement, itemId) == 4 && offsetof(BrowseElement, kind) == 8 &&
               offsetof(BrowseElement, reserved12) == 12 && offsetof(BrowseElement, reserved16) == 16 &&
               offsetof(BrowseElement, reserved20) == 20 && offsetof(BrowseElement, reserved24) == 24 &&
               offsetof(BrowseElement, reserved28) == 28));
static_assert(sizeof(void*) != 8 || sizeof(BrowseElement) == 48);
static_assert(sizeof(void*) != 8 ||
              (offsetof(BrowseElement, itemId) == 8 && offsetof(BrowseElement, kind) == 16 &&
               offsetof(BrowseElement, reserved12) == 20 && offsetof(BrowseElement, reserved16) == 24 &&
               offsetof(BrowseElement, reserved20) == 28 && offsetof(BrowseElement, reserved24) == 32 &&
               offsetof(BrowseElement, reserved28) == 40));
