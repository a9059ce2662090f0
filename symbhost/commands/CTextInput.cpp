#include "symbhost/commands/CTextInput.h"

#include "platform/mfc/Conversion.h"

#include "platform/win32/CodePage.h"

#include <utility>

namespace {

constexpr bool IsHighSurrogate(char16_t unit)
{
    return (unit & 0xFC00) == 0xD800;
}

} // namespace

std::optional<unsigned> CTextInput::NextByte()
{
    char byte = 0;
    if (!input.get(byte))
        return std::nullopt;
    return static_cast<unsigned char>(byte);
}

// The first two bytes tell how the text is written; a name begins with a character of ASCII, whose other half is 0.
void CTextInput::Begin()
{
    const std::optional<unsigned> first = NextByte();
    const std::optional<unsigned> second = first && *first != '\n' ? NextByte() : std::nullopt;
    const unsigned both = first.value_or(1) << 8U | second.value_or(1);
    form = both == 0xFFFE || (second && *second == 0) ? Form::LittleEndian
           : both == 0xFEFF || (first && *first == 0) ? Form::BigEndian
                                                      : Form::Utf8;
    if (both == 0xFFFE || both == 0xFEFF)
        return;
    if (form == Form::Utf8) {
        for (const std::optional<unsigned>& byte : {first, second})
            if (byte)
                pending += static_cast<char>(*byte);
        if (pending == "\xEF\xBB")
            if (const std::optional<unsigned> third = NextByte()) {
                pending += static_cast<char>(*third);
                pending.erase(0, *third == 0xBF ? 3 : 0);
            }
    } else if (second) {
        Decode(static_cast<char16_t>(form == Form::BigEndian ? both : (both & 0xFFU) << 8U | both >> 8U));
    }
}

std::optional<char16_t> CTextInput::NextUnit()
{
    if (keptUnit)
        return std::exchange(keptUnit, std::nullopt);
    const std::optional<unsigned> first = NextByte();
    const std::optional<unsigned> second = first ? NextByte() : std::nullopt;
    if (!second)
        return std::nullopt;
    return static_cast<char16_t>(form == Form::BigEndian ? *first << 8U | *second : *second << 8U | *first);
}

void CTextInput::Decode(char16_t unit)
{
    WideString units(1, static_cast<WCHAR>(unit));
    if (IsHighSurrogate(unit))
        if (const std::optional<char16_t> low = NextUnit()) {
            if ((*low & 0xFC00) == 0xDC00)
                units += static_cast<WCHAR>(*low);
            else
                keptUnit = low;
        }
    pending = Narrow(units, CP_UTF8);
    handedOut = 0;
}

std::optional<char> CTextInput::Next()
{
    if (form == Form::NotKnown)
        Begin();
    if (handedOut < pending.size())
        return pending[handedOut++];
    if (form == Form::Utf8) {
        const std::optional<unsigned> byte = NextByte();
        return byte ? std::optional(static_cast<char>(*byte)) : std::nullopt;
    }
    const std::optional<char16_t> unit = NextUnit();
    if (!unit)
        return std::nullopt;
    Decode(*unit);
    return Next(); // once: there is text now
}
