// Exports that are not UTF-8 go through UTF-16, which the system turns into UTF-8.
#include "korvaproservices/Encoding.h"
#include "platform/win32/CodePage.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

namespace {

constexpr std::size_t kConvertUnits = 1U << 20; // per call; the system counts in int
constexpr char32_t kReplacement = 0xFFFD;

// Characters of UTF-32 or ISO-8859-1 one by one.
std::basic_string<WCHAR> ToUtf16(std::string_view bytes, Encoding encoding)
{
    const std::size_t width = encoding == Encoding::Latin1 ? 1 : 4;
    std::basic_string<WCHAR> units;
    units.reserve(bytes.size() / width);
    for (std::size_t at = 0; at < bytes.size(); at += width) {
        std::uint32_t character = 0;
        for (std::size_t i = 0; i < width; ++i) {
            const std::size_t byte = encoding == Encoding::Utf32LittleEndian ? width - 1 - i : i;
            // A character that the end cuts short is none.
            character = at + byte < bytes.size() ? character << 8 | static_cast<unsigned char>(bytes[at + byte]) : ~0U;
        }
        if (character > 0x10FFFF || (character >= 0xD800 && character <= 0xDFFF))
            character = kReplacement;
        if (character >= 0x10000) {
            units += static_cast<WCHAR>(0xD7C0 + (character >> 10));
            character = 0xDC00 + (character & 0x3FF);
        }
        units += static_cast<WCHAR>(character);
    }
    return units;
}

// Makes the bytes little-endian units, in place. Half a unit at the end becomes U+FFFD.
void CompleteUnits(CExportBytes& bytes, Encoding encoding)
{
    char* const block = bytes.block.get();
    if (encoding == Encoding::Utf16BigEndian)
        for (std::size_t i = 0; i + 1 < bytes.size; i += 2)
            std::swap(block[i], block[i + 1]);
    if (bytes.size % 2 == 0)
        return;
    block[bytes.size - 1] = '\xFD';
    block[bytes.size++] = '\xFF';
}

// Converts piece by piece; with `utf8` null only counts. Returns the bytes.
std::size_t ConvertPieces(std::basic_string_view<WCHAR> text, char* utf8, std::size_t capacity)
{
    std::size_t bytes = 0;
    while (!text.empty()) {
        std::size_t piece = std::min(text.size(), kConvertUnits);
        const bool endsInsidePair = piece < text.size() && (text[piece - 1] & 0xFC00) == 0xD800;
        if (endsInsidePair)
            --piece;
        const int room = utf8 ? static_cast<int>(std::min<std::size_t>(capacity - bytes, INT32_MAX)) : 0;
        const int written = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(piece),
                                                utf8 ? utf8 + bytes : nullptr, room, nullptr, nullptr);
        bytes += static_cast<std::size_t>(written);
        text.remove_prefix(piece);
    }
    return bytes;
}

} // namespace

void ConvertToUtf8(CExportBytes& bytes, Encoding encoding)
{
    if (encoding == Encoding::Utf8)
        return;
    std::basic_string<WCHAR> converted;
    std::basic_string_view<WCHAR> text;
    if (encoding == Encoding::Utf16LittleEndian || encoding == Encoding::Utf16BigEndian) {
        CompleteUnits(bytes, encoding);
        const void* const start = bytes.block.get(); // aligned, as malloc aligns
        text = {static_cast<LPCWSTR>(start), bytes.size / 2};
    } else {
        text = converted = ToUtf16(bytes.View(), encoding);
    }
    CExportBytes utf8(ConvertPieces(text, nullptr, 0));
    ConvertPieces(text, utf8.block.get(), utf8.size);
    bytes = std::move(utf8);
}
