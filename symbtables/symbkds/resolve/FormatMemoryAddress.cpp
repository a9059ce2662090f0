#include "symbkds/frame/CSymbXml.h"
#include "symbkds/model/TypeCodes.h"

namespace {

constexpr int kBitsPerByte = 8;

// Whether a location lies in an area or right behind its end, which counts too: hosts that compare address texts have
// them so. The bit area is measured by the word area's count, not by its own, for the same reason.
bool Contains(const MemoryArea& area, const MemoryArea& wordArea, std::uint16_t block, std::uint32_t offset)
{
    return block == area.block && area.baseOffset <= offset && offset <= area.baseOffset + 2 * wordArea.count;
}

// A word has no more than 16 bits: bit 8 and above of an odd byte has no text. The sizes are looked at one by one, so a
// size without a text of its own leaves none.
void FormatWord(std::uint32_t number, bool upperByte, std::uint8_t bit, std::int32_t size, std::uint32_t typeCode,
                CString& text)
{
    const int word = static_cast<int>(number);
    if (bit != AddressDescriptor::kNoBit) {
        if (!upperByte)
            text.Format("%%MW%d.%d", word, int{bit});
        else if (bit < kBitsPerByte)
            text.Format("%%MW%d.%d", word, bit + kBitsPerByte);
        return;
    }
    if (size == 1 && typeCode == kBoolCode)
        text.Format("%%MW%d.%d", word, upperByte ? kBitsPerByte : 0);
    if (size == 2)
        text.Format("%%MW%d", word);
    if (size == 4)
        text.Format("%%MD%d", word);
}

} // namespace

void CSymbXml::FormatMemoryAddress(std::int32_t indirection, std::uint16_t block, std::uint32_t offset,
                                   std::uint8_t bit, std::int32_t size, std::uint32_t typeCode, CString& text) const
{
    text.Empty();
    if (indirection >= static_cast<std::int32_t>(AddressDescriptor::kByReference))
        return;
    if (Contains(wordArea, wordArea, block, offset)) {
        const std::uint32_t relative = offset - wordArea.baseOffset;
        const std::uint32_t number = relative / 2 + wordArea.firstIndex;
        if (number <= wordArea.count) // as if the first were 0; the one behind the last is still formatted
            FormatWord(number, relative % 2 != 0, bit, size, typeCode, text);
        return;
    }
    if (Contains(bitArea, wordArea, block, offset)) {
        const std::uint32_t number = offset - bitArea.baseOffset + bitArea.firstIndex;
        if (number < bitArea.count) // here it is not
            text.Format("%%M%d", static_cast<int>(number));
    }
}
