#include "platform/com/Bstr.h"

#include "platform/posix/BlockTag.h"

#include <cstdlib>
#include <cstring>
#include <string>

namespace {

// In front of the text.
struct Header
{
#ifndef NDEBUG
    std::uint64_t unused; // keeps the text aligned as the blocks of malloc are
    std::uint32_t tag;
#endif
    std::uint32_t textBytes;
};
static_assert(offsetof(Header, textBytes) + sizeof(std::uint32_t) == sizeof(Header), "the length touches the text");
#ifndef NDEBUG
static_assert(sizeof(Header) - offsetof(Header, tag) == kBlockTagDistance);
#endif

constexpr UINT kMaxUnits = (0x7FFFFFFFU - sizeof(Header)) / sizeof(OLECHAR) - 1;

Header* HeaderOf(BSTR text)
{
    return reinterpret_cast<Header*>(text) - 1;
}

} // namespace

BSTR SysAllocString(const OLECHAR* text)
{
    if (!text)
        return nullptr;
    const std::size_t units = std::char_traits<OLECHAR>::length(text);
    return units <= kMaxUnits ? SysAllocStringLen(text, static_cast<UINT>(units)) : nullptr;
}

BSTR SysAllocStringLen(const OLECHAR* text, UINT units)
{
    if (units > kMaxUnits)
        return nullptr;
    const std::uint32_t textBytes = units * static_cast<std::uint32_t>(sizeof(OLECHAR));
    auto* const header = static_cast<Header*>(std::malloc(sizeof(Header) + textBytes + sizeof(OLECHAR)));
    if (!header)
        return nullptr;
    header->textBytes = textBytes;
    const BSTR copy = reinterpret_cast<BSTR>(header + 1);
    if (text)
        std::memcpy(copy, text, textBytes);
    copy[units] = 0;
#ifndef NDEBUG
    PutBlockTag(copy, BlockTag::Text);
#endif
    return copy;
}

void SysFreeString(BSTR text)
{
    if (!text)
        return;
#ifndef NDEBUG
    CheckAndClearBlockTag(text, BlockTag::Text, "SysFreeString");
#endif
    std::free(HeaderOf(text));
}

UINT SysStringLen(BSTR text)
{
    return text ? HeaderOf(text)->textBytes / static_cast<UINT>(sizeof(OLECHAR)) : 0;
}
