// What hosts may do at the same time.
#include "support/ExportBuilder.h"
#include "support/FakeComponent.h"
#include "support/HostView.h"
#include "support/RecordingSink.h"

#include "platform/win32/Clock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

namespace {

void RunTogether(int threads, const std::function<void(int)>& work)
{
    std::vector<std::thread> running;
    running.reserve(static_cast<std::size_t>(threads));
    for (int i = 0; i < threads; ++i)
        running.emplace_back(work, i);
    for (std::thread& thread : running)
        thread.join();
}

TEST(Threads, LockedOperationsWaitForALookup)
{
    CRecordingSink sink;
    CHostTable table(sink);
    table.Load("no such export");
    const std::function<void()> kOperations[] = {
        [&] { table->SetVerbose(TRUE); }, [&] { table->GetSourceName(); },
        [&] { table->GetHeaderName(); },  [&] { table.Browse(); },
        [&] { table.BrowsePage({}, 0); }, [&] { table->Init("no such export", nullptr, TRUE, "", 0); },
    };
    for (const std::function<void()>& operation : kOperations) {
        sink.Hold();
        std::thread lookup([&] { table.Resolve("NOTHING"); });
        sink.AwaitHeld();
        std::atomic<bool> started = false, done = false;
        std::thread waiting([&] {
            CComScope com;
            started = true;
            operation();
            done = true;
        });
        while (!started)
            Sleep(0);
        table->GetDescription(); // takes no lock
        table->GetConsistencyState();
        Sleep(10);
        EXPECT_FALSE(done) << "operation " << &operation - kOperations;
        sink.Release();
        lookup.join();
        waiting.join();
    }
}

TEST(Threads, AnExceptionOfTheSinkLeavesTheObjectUnlocked)
{
    CRecordingSink sink;
    CHostTable table(sink);
    table.Load("no such export");
    sink.ThrowFromNowOn("sink failed");
    EXPECT_THROW(table.Resolve("NOTHING"), std::runtime_error);
    sink.ThrowFromNowOn("");
    std::thread([&] { EXPECT_EQ(table.Resolve("NOTHING").result, -1); }).join();
}

const char kPlant[] = "TYPE Motor STRUCT SPEED INT @4 size 2 GRID ARRAY[0..1,0..3] OF REAL @8 size 32 END\n"
                      "VAR W1 WORD AT %MW10 @20 size 2\n"
                      "VAR M1 Motor @200 size 40\n"
                      "VAR ROW ARRAY[1..4] OF INT @100 size 8\n";

void CheckPlant(const CHostTable& table)
{
    EXPECT_EQ(table.Lookup("w1.3"), "WORD as BOOL +20 size 2 bit 3 at %MW10.3");
    EXPECT_EQ(table.Lookup("M1.GRID[1][2]"), "REAL +232 size 4");
    EXPECT_EQ(table.Lookup("ROW[4]"), "INT +106 size 2");
    EXPECT_EQ(table.Lookup("M1.NOTHING"), "E_INVALIDARG, silent");
    EXPECT_EQ(table.Browse({.path = "ROW"}), "ROW[1], ROW[2], ROW[3], ROW[4]");
    EXPECT_EQ(table.BrowsePages({}, 2).Text(), "W1=!W1, M1=!M1 >, ROW=!ROW >");
    EXPECT_EQ(table->GetHeaderName(), "Unknwow");
}

TEST(Threads, ShareOneObject)
{
    CTemporaryFolder folder;
    CHostTable table;
    ASSERT_EQ(table.Load(WriteExport(folder, kPlant)), 0);
    RunTogether(4, [&](int thread) {
        for (int round = 0; round < 50; ++round) {
            CheckPlant(table);
            if (thread == 0)
                table->SetVerbose(round % 2);
        }
    });
}

TEST(Threads, LoadObjectsOfTheirOwn)
{
    CTemporaryFolder folder;
    std::string path = WriteExport(folder, kPlant);
    RunTogether(4, [&](int) {
        CHostTable table;
        EXPECT_EQ(table.Load(path, FALSE, folder.Path()), 0); // all write the same dump
        CheckPlant(table);
    });
}

TEST(Threads, UseTheComponentOneAfterTheOther)
{
    CTemporaryFolder folder;
    std::string path = folder.WriteFile("plant.kds", "");
    CFakeComponent fake(kPlant);
    CHostTable().Load(path);
    std::string one = fake.TakeCalls();
    fake.Watch([](const std::string&) { Sleep(0); });
    RunTogether(3, [&](int) { CHostTable().Load(path); });
    EXPECT_EQ(fake.TakeCalls(), one + ", " + one + ", " + one);
    EXPECT_EQ(fake.LivingObjects(), 0);
}

} // namespace
