#pragma once

#include <pugixml.hpp>

#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>

// The content of an export between the disk and the parser, allocated as the
// parser does so that the parsed document can own it.
struct CExportBytes
{
    struct CFree
    {
        void operator()(char* block) const { pugi::get_memory_deallocation_function()(block); }
    };

    // What AppendEnd puts behind the content.
    static constexpr std::string_view kEnd = "<end/>";

    // Uninitialised, with room for kEnd behind it. Raises std::bad_alloc when memory is short.
    explicit CExportBytes(std::size_t length)
        : block(static_cast<char*>(pugi::get_memory_allocation_function()(length + kEnd.size()))), size(length)
    {
        if (!block)
            throw std::bad_alloc();
    }

    std::string_view View() const { return {block.get(), size}; }

    void AppendEnd()
    {
        std::memcpy(block.get() + size, kEnd.data(), kEnd.size());
        size += kEnd.size();
    }

    std::unique_ptr<char, CFree> block;
    std::size_t size;
};
