// A long run of mixed requests ends with the memory it began with. SYMBKDS_LONG_RUN: how many seconds (10 without it).
#include "faults/Allocations.h"
#include "support/ExportBuilder.h"
#include "support/GeneratedProject.h"
#include "support/HostView.h"
#include "support/RecordingSink.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <random>

namespace {

void AskMixed(const CHostTable& table, const std::vector<std::string>& paths, std::mt19937& random)
{
    for (int count = 0; count < 500; ++count) {
        const std::string& path = paths[random() % paths.size()];
        const HostBrowse request{.path = path.c_str(),
                                 .filter = random() % 4 ? "" : "%UL",
                                 .branchesOnly = random() % 4 == 0,
                                 .fields = random() % 2 ? "AC" : ""};
        switch (random() % 8) {
        case 0:
            table.BrowseNames(request);
            break;
        case 1:
            table.BrowsePages(request, static_cast<DWORD>(1 + random() % 5));
            break;
        case 2:
            table.BrowsePage(request, 0);
            break;
        case 3:
            table->SetVerbose(random() % 2);
            table->GetSourceName();
            break;
        default:
            table.Resolve((path + (random() % 3 ? "" : "." + std::to_string(random() % 20))).c_str());
        }
    }
}

TEST(FaultsLongRun, EndsWithTheMemoryItBeganWith)
{
    const char* const wanted = std::getenv("SYMBKDS_LONG_RUN");
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(wanted ? std::atoi(wanted) : 10);
    CTemporaryFolder folder;
    CComScope com;
    CRecordingSink sink;
    std::mt19937 random(1);
    const std::string path = folder.WriteFile("plant.kds", ReadWholeFile(EXAMPLES_DIR "/plant.kds"));
    CHostTable kept(sink); // asked all the time
    ASSERT_EQ(kept.Load(path), 0);
    const std::vector<std::string> paths = kept.Paths({"", "NOTHING", "W1.99", "M[9", "PID1.NOTHING"}, 400);
    ASSERT_GT(paths.size(), 200u);
    for (const std::string& asked : paths) { // what requests make once: upper-case names, room in the sink
        kept.Resolve(asked.c_str());
        kept.BrowseNames({.path = asked.c_str(), .fields = "AC"});
    }
    long before = 0;
    for (int round = 0; round < 4 || std::chrono::steady_clock::now() < end; ++round) {
        {
            CHostTable passing(sink);
            const CGeneratedProject project(static_cast<unsigned>(round));
            ASSERT_EQ(passing.Load(WriteExport(folder, project.text, "other.kds"), TRUE, folder.Path()), 0);
            AskMixed(passing, passing.Paths({"", "NOTHING"}, 50), random);
            AskMixed(kept, paths, random);
        }
        kept.TakeMessages();
        if (round < 3)
            before = LivingBlocks();
        else
            ASSERT_EQ(LivingBlocks(), before) << "round " << round;
    }
}

} // namespace
