// An export loaded by the built plug-in.
#pragma once

#include "support/ExportBuilder.h"
#include "support/HostView.h"
#include "support/RecordingSink.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

// Neither the load nor a listing sends a message: what the sink holds then fails the test.
struct CLoadedExport
{
    explicit CLoadedExport(std::string_view exportText, BOOL verbose = TRUE)
    {
        EXPECT_EQ(table.Load(WriteExport(folder, exportText), verbose), 0);
        EXPECT_EQ(table.TakeMessages(), "");
    }
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
