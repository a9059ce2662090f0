#include "symbkds/model/WideToUtf8.h"

#include "platform/win32/CodePage.h"

namespace {

constexpr bool IsHighSurrogate(WCHAR unit)
{
    return (unit & 0xFC00) == 0xD800;
}

constexpr bool IsLowSurrogate(WCHAR unit)
{
    return (unit & 0xFC00) == 0xDC00;
}

// Number of units at the start of `text` whose UTF-8 form fits; an unpaired surrogate takes three bytes.
int FittingUnits(LPCWSTR text)
{
    constexpr int kMostBytesOfUnit = 3;
    int shortText = 0;
    while (shortText < kMaxUtf8Bytes / kMostBytesOfUnit && text[shortText])
        ++shortText;
    if (!text[shortText])
        return shortText; // fits whatever its units are

    int bytes = 0;
    int units = 0;
    while (text[units]) {
        const WCHAR unit = text[units];
        const bool pair = IsHighSurrogate(unit) && IsLowSurrogate(text[units + 1]);
        bytes += pair ? 4 : unit < 0x80 ? 1 : unit < 0x800 ? 2 : 3;
        if (bytes > kMaxUtf8Bytes)
            break;
        units += pair ? 2 : 1;
    }
    return units;
}

} // namespace

CString WideToUtf8(LPCWSTR text)
{
    const int units = text ? FittingUnits(text) : 0;
    if (units == 0)
        return {};
    char buffer[kMaxUtf8Bytes];
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, text, units, buffer, kMaxUtf8Bytes, nullptr, nullptr);
    return CString(buffer, bytes);
}
