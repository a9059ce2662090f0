#include "korvaproservices/Utf16.h"

#include "platform/win32/CodePage.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace {

constexpr std::size_t kConvertUnits = 1U << 20; // per call; the system counts in int

struct Utf16Form
{
    bool recognised;
    bool bigEndian;
    std::size_t markBytes;
};

Utf16Form Recognise(const CExportBytes& bytes)
{
    const auto at = [&](std::size_t index) -> unsigned {
        return index < bytes.size ? static_cast<unsigned char>(bytes.block.get()[index]) : 0U;
    };
    const unsigned first = at(0) << 8 | at(1);
    const bool wide32 = at(2) == 0 && at(3) == 0; // UTF-32 begins alike
    if (bytes.size < 2 || (bytes.size >= 4 && wide32))
        return {};
    switch (first) {
    case 0xFEFF:
        return {true, true, 2};
    case 0xFFFE:
        return {true, false, 2};
    case 0x003C:
        return {true, true, 0};
    case 0x3C00:
        return {true, false, 0};
    default:
        return {};
    }
}

void SwapBytes(CExportBytes& bytes)
{
    for (std::size_t i = 0; i + 1 < bytes.size; i += 2)
        std::swap(bytes.block.get()[i], bytes.block.get()[i + 1]);
}

// Converts piece by piece; with `utf8` null only counts. Returns the bytes.
std::size_t ConvertPieces(LPCWSTR text, std::size_t units, char* utf8, std::size_t capacity)
{
    std::size_t bytes = 0;
    while (units > 0) {
        std::size_t piece = std::min(units, kConvertUnits);
        const bool endsInsidePair = piece < units && (text[piece - 1] & 0xFC00) == 0xD800;
        if (endsInsidePair)
            --piece;
        const int room = utf8 ? static_cast<int>(std::min<std::size_t>(capacity - bytes, INT32_MAX)) : 0;
        const int written = WideCharToMultiByte(CP_UTF8, 0, text, static_cast<int>(piece),
                                                utf8 ? utf8 + bytes : nullptr, room, nullptr, nullptr);
        bytes += static_cast<std::size_t>(written);
        text += piece;
        units -= piece;
    }
    return bytes;
}

} // namespace

Utf16Result ConvertUtf16(CExportBytes& bytes)
{
    const Utf16Form form = Recognise(bytes);
    if (!form.recognised)
        return Utf16Result::notUtf16;
    const std::size_t units = (bytes.size - form.markBytes) / 2;
    if (bytes.size % 2 != 0 || units == 0)
        return Utf16Result::malformed;
    if (form.bigEndian)
        SwapBytes(bytes);
    const void* start = bytes.block.get() + form.markBytes; // aligned, as the block is and the mark has two bytes
    const LPCWSTR text = static_cast<LPCWSTR>(start);
    CExportBytes utf8(ConvertPieces(text, units, nullptr, 0));
    ConvertPieces(text, units, utf8.block.get(), utf8.size);
    bytes = std::move(utf8);
    return Utf16Result::converted;
}
