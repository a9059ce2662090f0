#include "platform/mfc/Conversion.h"

#include "platform/win32/CodePage.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <new>

namespace {

// Whether no unit has a bit above the seven of ASCII.
template <class Unit>
bool IsAscii(std::basic_string_view<Unit> text)
{
    constexpr std::uint64_t kHighBits = sizeof(Unit) == 1 ? 0x8080808080808080U : 0xFF80FF80FF80FF80U;
    constexpr std::size_t kStep = sizeof(std::uint64_t) / sizeof(Unit);
    std::uint64_t bits = 0;
    for (; text.size() >= kStep; text.remove_prefix(kStep)) {
        std::uint64_t word;
        std::memcpy(&word, text.data(), sizeof word);
        bits |= word;
    }
    std::uint64_t rest = 0;
    std::memcpy(&rest, text.data(), text.size() * sizeof(Unit));
    return ((bits | rest) & kHighBits) == 0;
}

// Converts a text that is not ASCII; with `units` 0 only counts. 0 with GetLastError() when there is no such code page.
int ToWide(std::string_view narrow, UINT codePage, WCHAR* wide, int units) noexcept
{
    return MultiByteToWideChar(codePage, 0, narrow.data(), static_cast<int>(narrow.size()), wide, units);
}

// The conversions of the system count in int.
void CheckLength(std::size_t length)
{
    if (length > INT_MAX)
        throw std::bad_alloc();
}

} // namespace

WideString Widen(std::string_view narrow, UINT codePage)
{
    CheckLength(narrow.size());
    if (IsAscii(narrow))
        return {narrow.begin(), narrow.end()};
    const int units = ToWide(narrow, codePage, nullptr, 0);
    WideString wide(static_cast<std::size_t>(units), 0);
    ToWide(narrow, codePage, wide.data(), units);
    return wide;
}

std::string Narrow(std::basic_string_view<WCHAR> wide, UINT codePage)
{
    CheckLength(wide.size());
    if (IsAscii(wide))
        return {wide.begin(), wide.end()};
    const int units = static_cast<int>(wide.size());
    const int bytes = WideCharToMultiByte(codePage, 0, wide.data(), units, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(codePage, 0, wide.data(), units, narrow.data(), bytes, nullptr, nullptr);
    return narrow;
}

BSTR MakeBstr(std::string_view narrow, UINT codePage) noexcept
{
    const bool isAscii = IsAscii(narrow);
    BSTR text = nullptr;
    if (narrow.size() <= INT_MAX) {
        const int units = isAscii ? static_cast<int>(narrow.size()) : ToWide(narrow, codePage, nullptr, 0);
        if (units == 0 && !isAscii)
            return nullptr;
        text = SysAllocStringLen(nullptr, static_cast<UINT>(units));
    }
    if (!text)
        SetLastError(ERROR_OUTOFMEMORY);
    else if (isAscii)
        std::copy(narrow.begin(), narrow.end(), text);
    else
        ToWide(narrow, codePage, text, static_cast<int>(SysStringLen(text)));
    return text;
}
