#pragma once

#include <pugixml.hpp>

#include <cstddef>
#include <memory>
#include <new>

// The content of an export between the disk and the parser, allocated as the
// parser does so that the parsed document can own it.
struct CExportBytes
{
    struct CFree
    {
        void operator()(char* block) const { pugi::get_memory_deallocation_function()(block); }
    };

    // Uninitialised. Raises std::bad_alloc when memory is short.
    explicit CExportBytes(std::size_t length)
        : block(static_cast<char*>(pugi::get_memory_allocation_function()(length))), size(length)
    {
        if (!block)
            throw std::bad_alloc();
    }

    std::unique_ptr<char, CFree> block;
    std::size_t size;
};
