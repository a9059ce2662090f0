// An export loaded by the built plug-in, and listings of it as texts.
#pragma once

#include "support/ExportBuilder.h"
#include "support/HostView.h"
#include "support/RecordingSink.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <vector>

// No listing sends a message: what the sink holds at the end fails the test.
struct CLoadedExport
{
    explicit CLoadedExport(std::string_view exportText) { EXPECT_EQ(table.Load(WriteExport(folder, exportText)), 0); }
    CLoadedExport(const CLoadedExport&) = delete;
    CLoadedExport& operator=(const CLoadedExport&) = delete;
    ~CLoadedExport() { EXPECT_EQ(table.TakeMessages(), ""); }

    // The names of a property browse, " >" behind each branch.
    std::string Elements(const HostBrowse& request) const { return Names(table.BrowsePage(request, 0)); }

    static std::string Names(const HostPage& page)
    {
        std::string joined = page.result == 0 ? "" : ResultName(page.result);
        for (const HostElement& element : page.elements)
            joined += (joined.empty() ? "" : ", ") + element.name + (element.kind == 3 ? " >" : "");
        return joined + (page.more ? " ..." : "");
    }

    CTemporaryFolder folder;
    CRecordingSink sink;
    CHostTable table{sink};
};

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
