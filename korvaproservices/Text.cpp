#include "korvaproservices/Text.h"

#include "platform/win32/CodePage.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <new>

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

std::size_t LeadingAscii(const char* text)
{
    std::size_t length = 0;
    while (text[length] != '\0' && static_cast<unsigned char>(text[length]) < 0x80)
        ++length;
    return length;
}

void ConvertToUtf8(std::string& utf8, BSTR text, int units)
{
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, text, units, nullptr, 0, nullptr, nullptr);
    utf8.resize(static_cast<std::size_t>(bytes));
    WideCharToMultiByte(CP_UTF8, 0, text, units, utf8.data(), bytes, nullptr, nullptr);
    std::replace(utf8.begin(), utf8.end(), '\0', '\xFF'); // a byte that UTF-8 never uses
}

} // namespace

BSTR MakeBstr(const char* text)
{
    const std::size_t ascii = LeadingAscii(text);
    if (text[ascii] == '\0') {
        BSTR wide = AllocateUnits(CheckedLength(ascii));
        std::copy_n(text, ascii, wide);
        return wide;
    }
    const int bytes = CheckedLength(ascii + std::strlen(text + ascii));
    const int units = MultiByteToWideChar(CP_UTF8, 0, text, bytes, nullptr, 0);
    BSTR wide = AllocateUnits(units);
    MultiByteToWideChar(CP_UTF8, 0, text, bytes, wide, units);
    return wide;
}

void AssignUtf8(std::string& utf8, BSTR text)
{
    const UINT units = SysStringLen(text);
    utf8.resize(units);
    char* const narrow = utf8.data();
    UINT ascii = 0;
    while (ascii < units && text[ascii] != 0 && text[ascii] < 0x80) {
        narrow[ascii] = static_cast<char>(text[ascii]);
        ++ascii;
    }
    if (ascii < units)
        ConvertToUtf8(utf8, text, CheckedLength(units));
}

std::string ToUtf8(BSTR text)
{
    std::string utf8;
    AssignUtf8(utf8, text);
    return utf8;
}
