#include "korvaproservices/CTreeMemory.h"

#include "platform/win32/LargePages.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <utility>

namespace {

constexpr std::size_t kAlignment = alignof(std::max_align_t);
// The first block holds two of the parser's pieces; each further one is as large as all before it together, up to
// 32 MB. So there are few, and no more is left unused than is used.
constexpr std::size_t kLeastBlockBytes = std::size_t{68} << 10;
constexpr std::size_t kMostBlockBytes = std::size_t{32} << 20;

thread_local CTreeMemory* parsingInto = nullptr;

// In front of every piece that the parser holds.
struct alignas(kAlignment) PieceHeader
{
    bool isOfTree; // goes back with the document; otherwise a block of malloc
};

void* AllocatePiece(std::size_t bytes) noexcept
{
    if (bytes > SIZE_MAX - sizeof(PieceHeader))
        return nullptr;
    bytes += sizeof(PieceHeader);
    void* const memory = parsingInto ? parsingInto->Allocate(bytes) : std::malloc(bytes);
    return memory ? new (memory) PieceHeader{parsingInto != nullptr} + 1 : nullptr;
}

void FreePiece(void* piece) noexcept
{
    if (!piece)
        return;
    PieceHeader* const header = static_cast<PieceHeader*>(piece) - 1;
    if (!header->isOfTree)
        std::free(header);
}

[[maybe_unused]] const bool isInstalled = [] {
    pugi::set_memory_management_functions(AllocatePiece, FreePiece);
    return true;
}();

} // namespace

struct alignas(kAlignment) CTreeMemory::Block
{
    Block* older;
    std::size_t allBytes; // of this block and the older ones
    char* unused;
    std::size_t left; // bytes from there
};

CTreeMemory::CScope::CScope(CTreeMemory& memory) noexcept
{
    parsingInto = &memory;
}

CTreeMemory::CScope::~CScope()
{
    parsingInto = nullptr;
}

CTreeMemory::~CTreeMemory()
{
    while (newest)
        std::free(std::exchange(newest, newest->older));
}

void* CTreeMemory::Allocate(std::size_t bytes) noexcept
{
    if (bytes > SIZE_MAX - sizeof(Block) - kAlignment)
        return nullptr;
    bytes = (bytes + kAlignment - 1) / kAlignment * kAlignment;
    Block* const block = newest && newest->left >= bytes ? newest : NewBlock(bytes);
    if (!block)
        return nullptr;
    block->left -= bytes;
    return std::exchange(block->unused, block->unused + bytes);
}

CTreeMemory::Block* CTreeMemory::NewBlock(std::size_t leastBytes) noexcept
{
    const std::size_t before = newest ? newest->allBytes : 0;
    const std::size_t bytes =
        std::max(sizeof(Block) + leastBytes, std::clamp(before, kLeastBlockBytes, kMostBlockBytes));
    void* const memory = std::malloc(bytes);
    if (!memory)
        return nullptr;
    PreferLargePages(memory, bytes);
    char* const first = static_cast<char*>(memory) + sizeof(Block);
    newest = new (memory) Block{newest, before + bytes, first, bytes - sizeof(Block)};
    return newest;
}
