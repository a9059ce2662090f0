// A host that gives back what it was handed in any order, also after the symbol table is gone.
#include "platform/com/TaskMemory.h"
#include "support/ExportBuilder.h"
#include "support/HostView.h"
#include "symb/PropertyEntry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <random>

namespace {

TEST(GiveBack, WorksInAnyOrder)
{
    std::mt19937 random(1);
    CTemporaryFolder folder;
    const std::string path = folder.WriteFile("plant.kds", ReadWholeFile(EXAMPLES_DIR "/plant.kds"));
    for (int round = 0; round < 20; ++round) {
        auto table = std::make_unique<CHostTable>();
        ASSERT_EQ(table->Load(path), 0);
        std::vector<std::function<void()>> releases; // of what the host still holds
        for (const char* name : {"W1", "W1.3", "MOTOR1.SPEED", "M[1][2]", "TAB[3]"}) {
            const auto lookup = std::make_shared<CHostLookup>();
            ASSERT_EQ(lookup->Ask(*table, name), 0);
            releases.emplace_back([lookup] { std::free(std::exchange(lookup->descriptor, nullptr)); });
            releases.emplace_back(
                [lookup] { delete[] static_cast<PropertyEntry*>(std::exchange(lookup->properties, nullptr)); });
            releases.emplace_back([text = lookup->address]() mutable { text.Empty(); });
            releases.emplace_back([lookup] { lookup->comment.Empty(); });
        }
        for (const char* listed : {"", "MOTOR1", "M", "TAB"}) {
            for (DWORD limit = 0; limit < 3; ++limit) {
                const auto listing = std::make_shared<CHostListing>(limit);
                ASSERT_EQ(listing->Run(*table, {.path = listed}), 0);
                releases.emplace_back([listing] { listing->Read(0); });
                releases.emplace_back([point = listing->point] { CoTaskMemFree(point); });
            }
        }
        if (round % 2)
            table.reset();
        std::shuffle(releases.begin(), releases.end(), random);
        for (; !releases.empty(); releases.pop_back())
            releases.back()();
        if (table) {
            EXPECT_EQ(table->Resolve("TAB[3]").result, 0) << round;
        }
    }
}

} // namespace
