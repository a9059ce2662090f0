// What hosts may do at the same time: every request gives what it gives when one thread asks alone.
#include "support/ExportBuilder.h"
#include "support/FakeComponent.h"
#include "support/HostView.h"
#include "support/RecordingSink.h"
#include "support/TemporaryFolder.h"

#include "platform/win32/Clock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <functional>
#include <random>
#include <thread>
#include <vector>

namespace {

void RunTogether(const std::vector<std::function<void()>>& works)
{
    std::vector<std::thread> running(works.begin(), works.end());
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

TEST(Threads, AnInitThatWaitsForAnotherHoldsItsObject)
{
    CRecordingSink sink;
    CHostTable first(sink), second;
    sink.Hold();
    std::thread holder([&] { first.Load("no such export"); });
    sink.AwaitHeld(); // with the locks of the first
    std::thread waiting([&] { second.Load("no such export"); });
    std::atomic<int> asked = 0;
    std::atomic<bool> answered = false;
    std::thread asking([&] {
        for (; second->GetSourceName().IsEmpty(); ++asked)
            Sleep(1);
        answered = true;
    });
    int before = -1; // until the second has taken its lock there is an answer, which is empty
    for (int tries = 0; tries < 50 && before != asked; ++tries) {
        before = asked;
        Sleep(100);
    }
    EXPECT_EQ(before, asked);
    EXPECT_FALSE(answered);
    sink.Release();
    holder.join();
    waiting.join();
    asking.join();
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

TEST(Threads, UseTheComponentOneAfterTheOther)
{
    CTemporaryFolder folder;
    std::string path = folder.WriteFile("plant.kds", "");
    CFakeComponent fake("TYPE Motor STRUCT SPEED INT END VAR M1 Motor VAR ROW ARRAY[1..4] OF INT");
    CHostTable().Load(path);
    std::string one = fake.TakeCalls();
    fake.Watch([](const std::string&) { Sleep(0); });
    const auto load = [&] { CHostTable().Load(path); };
    RunTogether({load, load, load});
    EXPECT_EQ(fake.TakeCalls(), one + ", " + one + ", " + one);
    EXPECT_EQ(fake.LivingObjects(), 0);
}

// A host that takes its time for each line.
class CSlowSink : public CRecordingSink
{
public:
    void Trace(LONG, LPCSTR text) override
    {
        Sleep(lines % 16 == 0 ? 1 : 0);
        lines += *text != '\0';
    }

    std::atomic<unsigned> lines = 0;
};

std::string Ask(const CHostTable& table, const std::string& path, int kind)
{
    const HostBrowse request{.path = path.c_str(), .fields = kind == 2 ? "AC" : ""};
    switch (kind) {
    case 0:
        return table.Lookup(path.c_str());
    case 1:
        return table.BrowsePages(request, 3).Text();
    case 2:
        return table.Browse(request);
    default:
        return std::string((kind == 3 ? table->GetSourceName() : table->GetHeaderName()).View());
    }
}

using Answers = std::vector<std::pair<std::pair<std::string, int>, std::string>>;

Answers AskEverything(const CHostTable& table)
{
    Answers answers;
    // Every symbol of the plant down to its elements, and names that fail.
    for (const std::string& path : table.Paths({"", "NOTHING", "W1.99", "M[9", "W1[1]", "PID1.NOTHING"}, 250))
        for (int kind = 0; kind < 5; ++kind)
            answers.push_back({{path, kind}, Ask(table, path, kind)});
    return answers;
}

struct CAnsweredPlant
{
    CAnsweredPlant()
    {
        EXPECT_EQ(table.Load(path), 0);
        AskEverything(table);                                         // requests make type names upper case, once
        std::thread([&] { expected = AskEverything(table); }).join(); // texts depend on a thread's code page
    }

    void CheckFrom(unsigned seed) const
    {
        Answers shuffled = expected;
        std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(seed));
        for (const auto& [asked, answer] : shuffled)
            ASSERT_EQ(Ask(table, asked.first, asked.second), answer) << asked.first << " " << asked.second;
    }

    CTemporaryFolder folder;
    std::string bytes = ReadWholeFile(EXAMPLES_DIR "/plant.kds");
    std::string path = folder.WriteFile("plant.kds", bytes);
    CSlowSink sink;
    CHostTable table{sink};
    Answers expected;
};

TEST(MixedThreads, AnswerAsOneThread)
{
    const CAnsweredPlant plant;
    const auto check = [&](unsigned seed) { return [&plant, seed] { plant.CheckFrom(seed); }; };
    const auto toggle = [&] {
        for (int round = 0; round < 200; ++round) {
            plant.table->SetVerbose(round % 2);
            Sleep(0);
        }
    };
    const auto load = [&] {
        for (int round = 0; round < 3; ++round) {
            CHostTable other;
            EXPECT_EQ(other.Load(plant.path, TRUE, plant.folder.Path()), 0);
            EXPECT_EQ(other.Lookup("MOTOR1.STATUS.3"), plant.table.Lookup("MOTOR1.STATUS.3"));
        }
    };
    RunTogether({check(1), check(2), check(3), toggle, load, load});
    EXPECT_GT(plant.sink.lines, 0u);
}

TEST(MixedThreads, AnswerWhileAWriterReplacesTheFile)
{
    const CAnsweredPlant plant;
    plant.table->SetVerbose(FALSE); // only what the change check has to say
    std::atomic<bool> done = false;
    std::thread writer([&] {
        for (int round = 0; !done; ++round) {
            plant.folder.WriteFile("new.kds", round % 2 ? plant.bytes : "not an export");
            ShiftFileTime(plant.folder.FilePath("new.kds"), round % 7 - 3);
            std::filesystem::rename(plant.folder.FilePath("new.kds"), plant.path);
        }
    });
    const unsigned before = plant.sink.lines;
    RunTogether({[&] { plant.CheckFrom(4); }, [&] { plant.CheckFrom(5); }});
    done = true;
    writer.join();
    EXPECT_EQ(plant.sink.lines, before); // there was a file at every moment
}

} // namespace
