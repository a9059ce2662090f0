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

const char kPlant[] = "TYPE Motor STRUCT SPEED INT @4 size 2 GRID ARRAY[0..1,0..3] OF REAL @8 size 32 END\n"
                      "VAR W1 WORD AT %MW10 @20 size 2 'a word' customer \"line 1\"\n"
                      "VAR M1 Motor @200 size 40\n"
                      "VAR ROW ARRAY[1..4] OF INT @100 size 8\n";

TEST(GiveBack, WorksInAnyOrder)
{
    std::mt19937 random(1);
    CTemporaryFolder folder;
    const std::string path = WriteExport(folder, kPlant);
    for (int round = 0; round < 20; ++round) {
        auto table = std::make_unique<CHostTable>();
        ASSERT_EQ(table->Load(path), 0);
        std::vector<std::function<void()>> releases; // of what the host still holds
        for (const char* name : {"W1", "W1.3", "M1.SPEED", "M1.GRID[1][2]", "ROW[2]"}) {
            const auto lookup = std::make_shared<CHostLookup>();
            ASSERT_EQ(lookup->Ask(*table, name), 0);
            releases.emplace_back([lookup] { std::free(std::exchange(lookup->descriptor, nullptr)); });
            releases.emplace_back(
                [lookup] { delete[] static_cast<PropertyEntry*>(std::exchange(lookup->properties, nullptr)); });
            releases.emplace_back([text = lookup->address]() mutable { text.Empty(); });
            releases.emplace_back([lookup] { lookup->comment.Empty(); });
        }
        for (const char* listed : {"", "M1", "M1.GRID", "ROW"}) {
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
            EXPECT_EQ(table->Lookup("ROW[4]"), "INT +106 size 2") << round;
        }
    }
}

} // namespace
