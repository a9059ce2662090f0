#include "symbhost/Text.h"

#include "platform/win32/CodePage.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

struct Decoded
{
    char32_t codePoint;
    std::size_t bytes; // 0: no character starts here
};

// The first character of `text`, which is not empty.
Decoded DecodeUtf8(std::string_view text)
{
    const auto byte = [text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    if (byte(0) < 0x80)
        return {byte(0), 1};
    const std::size_t bytes = byte(0) >= 0xF0 ? 4 : byte(0) >= 0xE0 ? 3 : 2;
    if (byte(0) < 0xC2 || byte(0) > 0xF4 || text.size() < bytes)
        return {0, 0};
    char32_t codePoint = byte(0) & (0x7FU >> bytes);
    for (std::size_t at = 1; at < bytes; ++at) {
        if ((byte(at) & 0xC0U) != 0x80)
            return {0, 0};
        codePoint = (codePoint << 6U) | (byte(at) & 0x3FU);
    }
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    if (codePoint < kSmallest[bytes] || codePoint > 0x10FFFF || isSurrogate)
        return {0, 0};
    return {codePoint, bytes};
}

// Controls of ASCII and Latin-1, line separators and the marks and overrides of the writing direction.
bool MovesTheTerminal(char32_t codePoint)
{
    return codePoint < 0x20 || (codePoint >= 0x7F && codePoint <= 0x9F) || codePoint == 0x061C || codePoint == 0x200E ||
           codePoint == 0x200F || (codePoint >= 0x2028 && codePoint <= 0x202E) ||
           (codePoint >= 0x2066 && codePoint <= 0x2069) || codePoint == 0xFEFF;
}

void AppendHex(std::string& text, char32_t value, unsigned digits)
{
    while (digits-- > 0)
        text += "0123456789abcdef"[(value >> (4 * digits)) & 0xFU];
}

void AppendEscape(std::string& text, char32_t value, bool isByte)
{
    constexpr std::string_view kNamed = "\n\r\t";
    if (const std::size_t at = kNamed.find(static_cast<char>(value)); value < 0x80 && at != std::string_view::npos) {
        text += '\\';
        text += "nrt"[at];
        return;
    }
    text += isByte ? "\\x" : "\\u";
    AppendHex(text, value, isByte ? 2 : 4);
}

// Printable ASCII.
bool IsPlainByte(char byte)
{
    return byte >= ' ' && byte <= '~';
}

// All but the bytes that continue a character.
bool BeginsCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80;
}

} // namespace

std::string NarrowText(LPCWSTR text, UINT codePage)
{
    return text ? Narrow(text, codePage) : std::string();
}

std::string Utf8FromArgument(const std::string& argument)
{
    return Narrow(Widen(argument, CP_ACP), CP_UTF8);
}

std::string Printable(std::string_view text)
{
    std::string printable;
    printable.reserve(text.size());
    while (!text.empty()) {
        const auto plainEnd = std::ranges::find_if_not(text, IsPlainByte);
        printable.append(text.begin(), plainEnd);
        text.remove_prefix(static_cast<std::size_t>(plainEnd - text.begin()));
        if (text.empty())
            break;
        const Decoded decoded = DecodeUtf8(text);
        if (decoded.bytes == 0)
            AppendEscape(printable, static_cast<unsigned char>(text.front()), true);
        else if (MovesTheTerminal(decoded.codePoint))
            AppendEscape(printable, decoded.codePoint, decoded.codePoint < 0x80);
        else
            printable += text.substr(0, decoded.bytes);
        text.remove_prefix(std::max<std::size_t>(decoded.bytes, 1));
    }
    return printable;
}

bool IsPlain(std::string_view text)
{
    // Eight bytes at a time: the difference has the highest bit of a byte below ' ', the sum that of one above '~'.
    // What is borrowed and carried comes from such bytes alone.
    constexpr std::uint64_t kEach = 0x0101010101010101U;
    const auto faults = [](std::uint64_t bytes) { return ((bytes - ' ' * kEach) | (bytes + kEach)) & (0x80 * kEach); };
    std::uint64_t found = 0;
    std::uint64_t bytes = 0;
    for (; text.size() >= sizeof bytes; text.remove_prefix(sizeof bytes)) {
        std::memcpy(&bytes, text.data(), sizeof bytes);
        found |= faults(bytes);
    }
    bytes = ' ' * kEach;
    if (!text.empty())
        std::memcpy(&bytes, text.data(), text.size());
    return (found | faults(bytes)) == 0;
}

std::string ValidUtf8(std::string_view text)
{
    if (IsPlain(text))
        return std::string(text);
    std::string valid;
    while (!text.empty()) {
        const std::size_t bytes = DecodeUtf8(text).bytes;
        valid += bytes == 0 ? "\xEF\xBF\xBD" : text.substr(0, bytes);
        text.remove_prefix(std::max<std::size_t>(bytes, 1));
    }
    return valid;
}

std::size_t DisplayWidth(std::string_view printable)
{
    return static_cast<std::size_t>(std::ranges::count_if(printable, BeginsCharacter));
}

std::string FirstCharacters(std::string_view printable, std::size_t columns)
{
    std::size_t end = 0;
    for (; end < printable.size(); ++end)
        if (BeginsCharacter(printable[end]) && columns-- == 0)
            break;
    return std::string(printable.substr(0, end));
}

std::string HexText(DWORD value)
{
    std::string text = "0x00000000";
    for (auto digit = text.rbegin(); value != 0; ++digit, value >>= 4U)
        *digit = "0123456789ABCDEF"[value & 0xFU];
    return text;
}

std::string ResultText(HRESULT result)
{
    return HexText(static_cast<DWORD>(result));
}
