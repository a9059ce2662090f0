#pragma once

#include <cstddef>

// The memory of one parsed document.
//
// The parser asks for its tree in pieces of 32 kB, by the thousand for a large
// export. They are cut from few large blocks instead, backed by large pages where the
// system has them, and go back together. The parser is told of it once, when the
// library is loaded; its copy inside the component is nobody else's.
class CTreeMemory
{
public:
    // While it lives, the pieces that the parser asks for on this thread come from `memory`. Scopes do not nest.
    class CScope
    {
    public:
        explicit CScope(CTreeMemory& memory) noexcept;
        CScope(const CScope&) = delete;
        CScope& operator=(const CScope&) = delete;
        ~CScope();
    };

    CTreeMemory() noexcept = default;
    CTreeMemory(const CTreeMemory&) = delete;
    CTreeMemory& operator=(const CTreeMemory&) = delete;
    // Outlives the document whose tree lies here.
    ~CTreeMemory();

    // Aligned as the blocks of malloc are, valid until the end. Null when memory is short.
    void* Allocate(std::size_t bytes) noexcept;

private:
    struct Block;

    Block* NewBlock(std::size_t leastBytes) noexcept;

    Block* newest = nullptr;
};
