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
            CString address, comment;
            void *descriptor = nullptr, *properties = nullptr;
            DWORD count = 0;
            ASSERT_EQ((*table)->SearchAndGetFF(0, name, address, comment, &descriptor, &count, &properties), 0);
            releases.emplace_back([descriptor] { std::free(descriptor); });
            releases.emplace_back([properties] { delete[] static_cast<PropertyEntry*>(properties); });
            releases.emplace_back([text = address]() mutable { text.Empty(); });
            releases.emplace_back([text = comment]() mutable { text.Empty(); });
        }
        for (const char* listed : {"", "M1", "M1.GRID", "ROW"}) {
            for (DWORD limit = 0; limit < 3; ++limit) {
                LPWSTR point = nullptr;
                DWORD more = 0;
                const auto elements = std::make_shared<CHostElements>(limit);
                ASSERT_EQ((*table)->BrowseSymbolsWithProperties("", "*", 0, listed, 0, 0, 0, 1, 1, 0, nullptr, nullptr,
                                                                &point, limit, 0, 0, 0, 0, &more, &elements->count,
                                                                &elements->array, &elements->capacity, nullptr),
                          0);
                releases.emplace_back([elements] { elements->Read(0); });
                releases.emplace_back([point] { CoTaskMemFree(point); });
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
