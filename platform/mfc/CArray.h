#pragma once

#include "platform/mfc/CString.h"
#include "platform/win32/Types.h"

#include <vector>

// A growing array. Indexes count from 0 and must lie inside.
template <class TYPE, class ARG_TYPE>
class CArray
{
public:
    int GetSize() const noexcept { return static_cast<int>(items.size()); }
    bool IsEmpty() const noexcept { return items.empty(); }
    const TYPE& GetAt(int index) const noexcept { return items[static_cast<std::size_t>(index)]; }
    const TYPE& operator[](int index) const noexcept { return GetAt(index); }
    void SetAt(int index, ARG_TYPE item) { items[static_cast<std::size_t>(index)] = item; }
    // Appends; returns the new item's index.
    int Add(ARG_TYPE item)
    {
        items.emplace_back(item);
        return GetSize() - 1;
    }
    // Shortens the array to its first `count` items.
    void Truncate(int count) { items.resize(static_cast<std::size_t>(count)); }
    void RemoveAll() noexcept { items.clear(); }

private:
    std::vector<TYPE> items;
};

using CStringArray = CArray<CString, const CString&>;
using CWordArray = CArray<WORD, WORD>;
