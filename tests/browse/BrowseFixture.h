// Listings and their pages.
#pragma once

#include "support/LoadedExport.h"

#include <algorithm>
#include <set>
#include <vector>

// Fails unless the listing, and pages of several sizes that each begin where the one before ended, hold these elements
// as HostPage shows them.
inline void ExpectPages(const CHostTable& table, const HostBrowse& request, const std::vector<std::string>& elements)
{
    const std::size_t count = elements.size();
    for (const std::size_t size : std::set<std::size_t>{0, 1, 1 + count / 2, count}) {
        std::size_t done = 0;
        std::string point;
        do {
            const std::size_t end = size == 0 ? count : std::min(done + size, count);
            std::string expected;
            for (std::size_t i = done; i < end; ++i)
                expected += (i > done ? ", " : "") + elements[i];
            const HostPage page = table.BrowsePage(request, static_cast<DWORD>(size), point);
            ASSERT_EQ(page.Text(), expected + (end < count ? " ..." : "")) << "from " << done << ", size " << size;
            ASSERT_EQ(page.continuation.empty(), end == count) << "from " << done << ", size " << size;
            point = page.continuation;
            done = end;
        } while (done < count);
    }
}
