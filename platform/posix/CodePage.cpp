#include "platform/win32/CodePage.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <string>
#include <string_view>

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsUtf8(UINT codePage)
{
    return codePage == CP_ACP || codePage == CP_THREAD_ACP || codePage == CP_UTF8;
}

int Fail(DWORD error)
{
    SetLastError(error);
    return 0;
}

// Where converted units go. It counts all of them and stores those that fit.
template <class Unit>
class CUnitWriter
{
public:
    CUnitWriter(Unit* start, int count) : units(start), room(static_cast<std::size_t>(count)) {}

    void Put(Unit unit)
    {
        if (used < room)
            units[used] = unit;
        ++used;
    }

    // Units that are the same in both encodings.
    template <class Source>
    void PutAscii(const Source* run, std::size_t count)
    {
        const std::size_t fitting = used < room ? std::min(count, room - used) : 0;
        for (std::size_t i = 0; i < fitting; ++i)
            units[used + i] = static_cast<Unit>(run[i]);
        used += count;
    }

    // What the conversion returns.
    int Result() const
    {
        if (used > INT_MAX || (room != 0 && used > room))
            return Fail(ERROR_INSUFFICIENT_BUFFER);
        return static_cast<int>(used);
    }

private:
    Unit* units;
    std::size_t room; // 0: only counting
    std::size_t used = 0;
};

// The end of the run of ASCII units at `at`; `nonAscii` has the bits set, in
// each unit of eight bytes, that an ASCII unit has not.
template <class Unit>
const Unit* EndOfAscii(const Unit* at, const Unit* end, std::uint64_t nonAscii)
{
    constexpr std::ptrdiff_t kStep = sizeof(std::uint64_t) / sizeof(Unit);
    for (; end - at >= kStep; at += kStep) {
        std::uint64_t word;
        std::memcpy(&word, at, sizeof word);
        if (word & nonAscii)
            break;
    }
    while (at != end && static_cast<std::make_unsigned_t<Unit>>(*at) < 0x80)
        ++at;
    return at;
}

// How a sequence that begins with a byte above 0x7F goes on: the number of
// further bytes (0: no sequence begins so), and the range of the first of them,
// which excludes overlong forms, surrogates and what lies beyond U+10FFFF.
struct Sequence
{
    int further;
    unsigned char low;
    unsigned char high;
};

Sequence SequenceOf(unsigned char lead)
{
    if (lead < 0xC2 || lead > 0xF4)
        return {0, 0, 0};
    if (lead < 0xE0)
        return {1, 0x80, 0xBF};
    if (lead < 0xF0)
        return {2, static_cast<unsigned char>(lead == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(lead == 0xED ? 0x9F : 0xBF)};
    return {3, static_cast<unsigned char>(lead == 0xF0 ? 0x90 : 0x80),
            static_cast<unsigned char>(lead == 0xF4 ? 0x8F : 0xBF)};
}

// The character at `at`, which moves behind it. Of an ill-formed sequence the
// longest beginning that could have become a character is taken off.
char32_t NextCharacter(const char*& at, const char* end)
{
    const auto lead = static_cast<unsigned char>(*at++);
    const Sequence sequence = SequenceOf(lead);
    if (sequence.further == 0)
        return kReplacement;
    char32_t character = lead & (0x3FU >> sequence.further);
    for (int i = 0; i < sequence.further; ++i) {
        const unsigned char low = i == 0 ? sequence.low : 0x80;
        const unsigned char high = i == 0 ? sequence.high : 0xBF;
        const auto byte = at != end ? static_cast<unsigned char>(*at) : static_cast<unsigned char>(0);
        if (byte < low || byte > high)
            return kReplacement;
        character = character << 6 | (byte & 0x3FU);
        ++at;
    }
    return character;
}

void WriteUtf16(std::string_view narrow, CUnitWriter<WCHAR>& output)
{
    const char* at = narrow.data();
    const char* const end = at + narrow.size();
    while (at != end) {
        const char* const run = at;
        at = EndOfAscii(at, end, 0x8080808080808080U);
        output.PutAscii(run, static_cast<std::size_t>(at - run));
        while (at != end && static_cast<unsigned char>(*at) >= 0x80) {
            const char32_t character = NextCharacter(at, end);
            if (character < 0x10000) {
                output.Put(static_cast<WCHAR>(character));
                continue;
            }
            output.Put(static_cast<WCHAR>(0xD7C0 + (character >> 10)));
            output.Put(static_cast<WCHAR>(0xDC00 + (character & 0x3FF)));
        }
    }
}

// The character at `at`, which moves behind it.
char32_t NextCharacter(const WCHAR*& at, const WCHAR* end)
{
    const char32_t unit = *at++;
    if (unit < 0xD800 || unit > 0xDFFF)
        return unit;
    if (unit > 0xDBFF || at == end || *at < 0xDC00 || *at > 0xDFFF)
        return kReplacement;
    return 0x10000 + ((unit - 0xD800) << 10) + (*at++ - 0xDC00U);
}

void WriteUtf8(std::u16string_view wide, CUnitWriter<char>& output)
{
    const WCHAR* at = wide.data();
    const WCHAR* const end = at + wide.size();
    const auto put = [&output](char32_t byte) { output.Put(static_cast<char>(byte)); };
    const auto putFurther = [&put](char32_t bits) { put(0x80 | (bits & 0x3F)); };
    while (at != end) {
        const WCHAR* const run = at;
        at = EndOfAscii(at, end, 0xFF80FF80FF80FF80U);
        output.PutAscii(run, static_cast<std::size_t>(at - run));
        while (at != end && *at >= 0x80) {
            const char32_t character = NextCharacter(at, end);
            if (character >= 0x10000) {
                put(0xF0 | character >> 18);
                putFurther(character >> 12);
            } else if (character >= 0x800)
                put(0xE0 | character >> 12);
            if (character >= 0x800)
                putFurther(character >> 6);
            else
                put(0xC0 | character >> 6);
            putFurther(character);
        }
    }
}

// The text to convert; a negative `length` means up to and including the terminator.
template <class Unit>
std::basic_string_view<Unit> SourceText(const Unit* text, int length)
{
    using Traits = std::char_traits<Unit>;
    return {text, length < 0 ? Traits::length(text) + 1 : static_cast<std::size_t>(length)};
}

} // namespace

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR narrow, int narrowBytes, LPWSTR wide, int wideUnits)
{
    if (!IsUtf8(codePage) || flags != 0 || !narrow || narrowBytes == 0 || wideUnits < 0 || (wideUnits > 0 && !wide))
        return Fail(ERROR_INVALID_PARAMETER);
    CUnitWriter<WCHAR> output(wide, wideUnits);
    WriteUtf16(SourceText(narrow, narrowBytes), output);
    return output.Result();
}

int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR wide, int wideUnits, LPSTR narrow, int narrowBytes,
                        LPCSTR defaultChar, BOOL* usedDefaultChar)
{
    if (!IsUtf8(codePage) || flags != 0 || !wide || wideUnits == 0 || narrowBytes < 0 || (narrowBytes > 0 && !narrow) ||
        defaultChar || usedDefaultChar)
        return Fail(ERROR_INVALID_PARAMETER);
    CUnitWriter<char> output(narrow, narrowBytes);
    WriteUtf8(SourceText(wide, wideUnits), output);
    return output.Result();
}
