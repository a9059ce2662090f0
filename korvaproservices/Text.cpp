#include "korvaproservices/Text.h"

#include "platform/win32/CodePage.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>
#include <new>
#include <string>

namespace {

// The conversions of the system count in int.
int CheckedLength(std::size_t length)
{
    if (length > INT_MAX)
        throw std::bad_alloc();
    return static_cast<int>(length);
}

// Room for `units` units; the terminator is set.
BSTR AllocateUnits(int units)
{
    BSTR text = SysAllocStringLen(nullptr, static_cast<UINT>(units));
    if (!text)
        throw std::bad_alloc();
    return text;
}

bool IsAscii(const char* text, std::size_t length)
{
    std::uint64_t bits = 0;
    for (; length >= sizeof bits; length -= sizeof bits, text += sizeof bits) {
        std::uint64_t word;
        std::memcpy(&word, text, sizeof word);
        bits |= word;
    }
    for (; length > 0; --length)
        bits |= static_cast<unsigned char>(*text++);
    return (bits & 0x8080808080808080U) == 0;
}

} // namespace

BSTR MakeBstr(const char* text)
{
    const std::size_t length = std::strlen(text);
    const int bytes = CheckedLength(length);
    if (IsAscii(text, length)) {
        BSTR wide = AllocateUnits(bytes);
        std::copy_n(text, length, wide);
        return wide;
    }
    const int units = MultiByteToWideChar(CP_UTF8, 0, text, bytes, nullptr, 0);
    BSTR wide = AllocateUnits(units);
    MultiByteToWideChar(CP_UTF8, 0, text, bytes, wide, units);
    return wide;
}

bool EqualsConverted(const char* utf8, std::basic_string_view<OLECHAR> utf16)
{
    const int units = CheckedLength(utf16.size());
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, utf16.data(), units, nullptr, 0, nullptr, nullptr);
    std::string converted(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, utf16.data(), units, converted.data(), bytes, nullptr, nullptr);
    return converted == utf8; // false for one with a null, which no text of the document has
}
