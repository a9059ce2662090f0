// A symbol table loaded through the fake component.
#pragma once

#include "support/FakeComponent.h"
#include "support/HostView.h"
#include "support/RecordingSink.h"
#include "support/Split.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

struct CImport
{
    explicit CImport(std::string_view exportText) : fake(exportText) {}

    // Loads the empty file plant.kds, whose content is the fake's; dumps into a folder of its own.
    LONG Load(BOOL verbose = TRUE) { return table.Load(folder.WriteFile("plant.kds", ""), verbose, dumpFolder.Path()); }

    // Fails unless the component has everything back, the interfaces from the inside out.
    void ExpectAllGivenBack()
    {
        EXPECT_EQ(fake.LivingObjects(), 0);
        const std::string_view fromTheInsideOut = ", dataBlock, WalkSource, ImportSource, KorvaProServices";
        std::string interfaces;
        for (const std::string& released : Split(fake.TakeReleases(), ", "))
            if (!released.empty() && fromTheInsideOut.find(" " + released) != std::string_view::npos)
                interfaces += ", " + released;
        EXPECT_TRUE(fromTheInsideOut.ends_with(interfaces)) << interfaces;
    }

    bool HasDump() const { return !dumpFolder.List().empty(); }

    // The definitions and variables of the dump, line by line without the blanks around them.
    std::vector<std::string> DumpedLines() const
    {
        std::vector<std::string> lines;
        std::istringstream dump(HasDump() ? dumpFolder.ReadFile(dumpFolder.List()) : "");
        bool inside = false;
        for (std::string line; std::getline(dump, line) && !line.starts_with("QUICK SAVE DICO");) {
            inside = inside || line.starts_with("ListType");
            line.resize(line.find_last_not_of(" \r") + 1);
            line.erase(0, line.find_first_not_of(' '));
            if (inside)
                lines.push_back(line);
        }
        return lines;
    }
    // The same with "/" behind each line.
    std::string DumpedText() const
    {
        std::string joined;
        for (const std::string& line : DumpedLines())
            joined += line + "/";
        return joined;
    }

    CTemporaryFolder folder;
    CTemporaryFolder dumpFolder;
    CFakeComponent fake;
    CRecordingSink sink;
    CHostTable table{sink};
};
