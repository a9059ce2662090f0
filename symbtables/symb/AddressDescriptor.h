#pragma once

#include "platform/win32/Types.h"

#include <type_traits>

// Where a value lies in the controller and how to read it.
//
// Hosts read this record by layout: 76 bytes, little-endian, padding zero. The
// library allocates it with malloc; the host releases it with free of the same
// C runtime.
struct AddressDescriptor
{
    DWORD typeCode;       // type of the value; the BOOL code when one bit is extracted
    DWORD extraction;     // kExtractWhole or kExtractBit
    DWORD indirection;    // kDirect, or kByReference when the address holds a reference to the value
    WORD block;           // memory block number, AreaBlock of the export
    WORD padding14;       // always 0
    DWORD offset;         // bytes from the start of the block
    DWORD size;           // bytes; of the whole word when one bit is extracted
    BYTE bit;             // 0 to 15, counted from the lowest; kNoBit when the whole value is meant
    BYTE padding25[3];    // always 0
    DWORD relativeOffset; // bytes below a function block parameter that is reached unlocated; else 0
    DWORD reserved32;     // always 0
    WORD relativeSize;    // bytes (low 16 bits) of the value below such a parameter; else 0
    WORD padding38;       // always 0
    DWORD reserved40;     // always 1
    BYTE reserved44;      // always 0
    BYTE padding45[3];    // always 0
    DWORD reserved48;     // always 0
    DWORD reserved52;     // always 0
    WORD reserved56;      // always 0
    WORD padding58;       // always 0
    DWORD reserved60;     // always 0
    DWORD consistencySum; // fourth plus fifth word of the project identification, modulo 2^32
    DWORD reserved68;     // always 0
    DWORD accessRight;    // 1 read, 2 write, 3 read and write, 0 none; 1 for a value behind a reference

    static constexpr DWORD kExtractWhole = 1;
    static constexpr DWORD kExtractBit = 2;
    static constexpr DWORD kDirect = 1;
    static constexpr DWORD kByReference = 2;
    static constexpr BYTE kNoBit = 0xFF;
};

static_assert(std::is_standard_layout_v<AddressDescriptor> && std::is_trivially_copyable_v<AddressDescriptor>);
static_assert(sizeof(AddressDescriptor) == 76, "hosts read this record by offset");
static_assert(offsetof(AddressDescriptor, typeCode) == 0 && offsetof(AddressDescriptor, extraction) == 4);
static_assert(offsetof(AddressDescriptor, indirection) == 8 && offsetof(AddressDescriptor, block) == 12);
static_assert(offsetof(AddressDescriptor, padding14) == 14 && offsetof(AddressDescriptor, offset) == 16);
static_assert(offsetof(AddressDescriptor, size) == 20 && offsetof(AddressDescriptor, bit) == 24);
static_assert(offsetof(AddressDescriptor, padding25) == 25 && offsetof(AddressDescriptor, relativeOffset) == 28);
static_assert(offsetof(AddressDescriptor, reserved32) == 32 && offsetof(AddressDescriptor, relativeSize) == 36);
static_assert(offsetof(AddressDescriptor, padding38) == 38 && offsetof(AddressDescriptor, reserved40) == 40);
static_assert(offsetof(AddressDescriptor, reserved44) == 44 && offsetof(AddressDescriptor, padding45) == 45);
static_assert(offsetof(AddressDescriptor, reserved48) == 48 && offsetof(AddressDescriptor, reserved52) == 52);
static_assert(offsetof(AddressDescriptor, reserved56) == 56 && offsetof(AddressDescriptor, padding58) == 58);
static_assert(offsetof(AddressDescriptor, reserved60) == 60 && offsetof(AddressDescriptor, consistencySum) == 64);
static_assert(offsetof(AddressDescriptor, reserved68) == 68 && offsetof(AddressDescriptor, accessRight) == 72);
