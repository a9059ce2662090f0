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

// What the host still holds: how to give each thing back.
class CHeldByHost
{
public:
    void Lookup(const CHostTable& table, const char* name)
    {
        CString address, comment;
        void* descriptor = nullptr;
        void* properties = nullptr;
        DWORD count = 0;
        ASSERT_EQ(table->SearchAndGetFF(0, name, address, comment, &descriptor, &count, &properties), 0);
        releases.emplace_back([descriptor] { std::free(descriptor); });
        releases.emplace_back([properties] { delete[] static_cast<PropertyEntry*>(properties); });
        releases.emplace_back([text = address]() mutable { text.Empty(); });
        releases.emplace_back([text = comment]() mutable { text.Empty(); });
    }

    void List(const CHostTable& table, const char* path, DWORD limit)
    {
        LPWSTR point = nullptr;
        DWORD more = 0, count = 0, capacity = limit;
        void* elements = limit ? CoTaskMemAlloc(limit * kElementBytes) : nullptr;
        ASSERT_EQ(table->BrowseSymbolsWithProperties("", "*", 0, path, 0, 0, 0, 1, 1, 0, nullptr, nullptr, &point,
                                                     limit, 0, 0, 0, 0, &more, &count, &elements, &capacity, nullptr),
                  0);
        for (DWORD i = 0; i < count; ++i) {
            const auto* const texts = reinterpret_cast<void* const*>(static_cast<char*>(elements) + i * kElementBytes);
            Free(texts[0]);
            Free(texts[1]);
        }
        Free(elements);
        Free(point);
        releases.emplace_back([names = table.BrowseNames({.path = path})]() mutable { names.clear(); });
    }

    void ReleaseShuffled(std::mt19937& random)
    {
        std::shuffle(releases.begin(), releases.end(), random);
        while (!releases.empty()) {
            releases.back()();
            releases.pop_back();
        }
    }

private:
    static constexpr std::size_t kElementBytes = sizeof(void*) == 8 ? 48 : 32;

    void Free(void* block)
    {
        releases.emplace_back([block] { CoTaskMemFree(block); });
    }

    std::vector<std::function<void()>> releases;
};

TEST(GiveBack, WorksInAnyOrder)
{
    std::mt19937 random(1);
    CTemporaryFolder folder;
    const std::string path = WriteExport(folder, kPlant);
    for (int round = 0; round < 20; ++round) {
        CHeldByHost held;
        auto table = std::make_unique<CHostTable>();
        ASSERT_EQ(table->Load(path), 0);
        for (const char* name : {"W1", "W1.3", "M1.SPEED", "M1.GRID[1][2]", "ROW[2]"})
            held.Lookup(*table, name);
        for (const char* listed : {"", "M1", "M1.GRID", "ROW"})
            for (DWORD limit = 0; limit < 3; ++limit)
                held.List(*table, listed, limit);
        if (round % 2)
            table.reset();
        held.ReleaseShuffled(random);
        if (table) {
            EXPECT_EQ(table->Lookup("ROW[4]"), "INT +106 size 2");
        }
    }
}

} // namespace
