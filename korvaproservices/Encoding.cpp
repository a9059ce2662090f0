#include "korvaproservices/Encoding.h"

#include <algorithm>
#include <optional>

namespace {

using namespace std::string_view_literals;

struct Beginning
{
    std::string_view bytes;
    Encoding encoding;
};

// The longer ones first: UTF-32 begins like UTF-16.
constexpr Beginning kBeginnings[] = {
    {"\xFF\xFE\0\0"sv, Encoding::Utf32LittleEndian},
    {"\0\0\xFE\xFF"sv, Encoding::Utf32BigEndian},
    {"<\0\0\0"sv, Encoding::Utf32LittleEndian},
    {"\0\0\0<"sv, Encoding::Utf32BigEndian},
    {"\xFF\xFE"sv, Encoding::Utf16LittleEndian},
    {"\xFE\xFF"sv, Encoding::Utf16BigEndian},
    {"<\0"sv, Encoding::Utf16LittleEndian},
    {"\0<"sv, Encoding::Utf16BigEndian},
    {kUtf8Mark, Encoding::Utf8},
};

bool EqualsIgnoringCase(std::string_view text, std::string_view lower)
{
    return std::ranges::equal(text, lower, {},
                              [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
}

void SkipBlanks(std::string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
}

// Takes `name = "value"` off the front of `text`; nothing when that is not what stands there.
struct Declared
{
    std::string_view name;
    std::string_view value;
};

std::optional<Declared> TakeAttribute(std::string_view& text)
{
    SkipBlanks(text);
    Declared taken;
    taken.name = text.substr(0, text.find_first_of(" \t\r\n=?'\""));
    text.remove_prefix(taken.name.size());
    SkipBlanks(text);
    if (!text.starts_with('='))
        return std::nullopt;
    text.remove_prefix(1);
    SkipBlanks(text);
    if (!text.starts_with('"') && !text.starts_with('\''))
        return std::nullopt;
    const std::size_t end = text.find(text.front(), 1);
    if (end == std::string_view::npos)
        return std::nullopt;
    taken.value = text.substr(1, end - 1);
    text.remove_prefix(end + 1);
    return taken;
}

} // namespace

const char* NameOf(Encoding encoding)
{
    switch (encoding) {
    case Encoding::Utf16LittleEndian:
        return "UTF-16LE";
    case Encoding::Utf16BigEndian:
        return "UTF-16BE";
    case Encoding::Utf32LittleEndian:
        return "UTF-32LE";
    case Encoding::Utf32BigEndian:
        return "UTF-32BE";
    case Encoding::Latin1:
        return "ISO-8859-1";
    default:
        return "UTF-8";
    }
}

Encoding RecogniseEncoding(std::string_view bytes)
{
    for (const Beginning& beginning : kBeginnings)
        if (bytes.starts_with(beginning.bytes))
            return beginning.encoding;
    const std::string_view declared = DeclaredEncoding(bytes);
    const bool isLatin1 = EqualsIgnoringCase(declared, "iso-8859-1") || EqualsIgnoringCase(declared, "latin1");
    return isLatin1 ? Encoding::Latin1 : Encoding::Utf8;
}

std::string_view DeclaredEncoding(std::string_view utf8)
{
    constexpr std::string_view kDeclaration = "<?xml";
    if (utf8.starts_with(kUtf8Mark))
        utf8.remove_prefix(kUtf8Mark.size());
    if (!utf8.starts_with(kDeclaration))
        return {};
    utf8.remove_prefix(kDeclaration.size());
    while (const std::optional<Declared> attribute = TakeAttribute(utf8))
        if (attribute->name == "encoding")
            return attribute->value;
    return {};
}
