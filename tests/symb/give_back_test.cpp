// What a host was handed outlives the symbol table.
#include "platform/com/TaskMemory.h"
#include "support/ExportBuilder.h"
#include "support/HostView.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

TEST(GiveBack, WorksWhenTheTableIsGone)
{
    const CTemporaryFolder folder;
    auto table = std::make_unique<CHostTable>();
    ASSERT_EQ(table->Load(folder.WriteFile("plant.kds", ReadWholeFile(EXAMPLES_DIR "/plant.kds"))), 0);
    std::vector<std::unique_ptr<CHostLookup>> lookups;
    for (const char* name : {"W1", "W1.3", "MOTOR1.SPEED", "M[1][2]", "TAB[3]"})
        ASSERT_EQ(lookups.emplace_back(std::make_unique<CHostLookup>())->Ask(*table, name), 0);
    std::vector<std::unique_ptr<CHostListing>> listings;
    for (const char* path : {"", "MOTOR1", "M", "TAB"})
        for (DWORD limit = 0; limit < 3; ++limit)
            ASSERT_EQ(listings.emplace_back(std::make_unique<CHostListing>(limit))->Run(*table, {.path = path}), 0);
    table.reset();
    for (const auto& listing : listings) {
        listing->Read(0);
        CoTaskMemFree(listing->point);
    }
    EXPECT_STREQ(lookups[0]->address, "%MW10");
}

} // namespace
