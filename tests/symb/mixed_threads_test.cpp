// Many threads and one object: every request gives what it gives when one thread asks alone.
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

namespace {

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

// Every symbol of the plant down to its elements, and names that fail.
std::vector<std::string> PathsOf(const CHostTable& table)
{
    std::vector<std::string> paths{"", "NOTHING", "W1.99", "M[9", "W1[1]", "PID1.NOTHING"};
    for (std::size_t at = 0; at < paths.size() && paths.size() < 250; ++at)
        for (const HostElement& element : table.BrowsePage({.path = std::string(paths[at]).c_str()}, 0).elements)
            paths.push_back(paths[at] + element.itemId.substr(at == 0 ? 1 : 0));
    return paths;
}

using Answers = std::vector<std::pair<std::pair<std::string, int>, std::string>>;

Answers AskEverything(const CHostTable& table)
{
    Answers answers;
    for (const std::string& path : PathsOf(table))
        for (int kind = 0; kind < 5; ++kind)
            answers.push_back({{path, kind}, Ask(table, path, kind)});
    return answers;
}

struct CPlant
{
    CPlant()
    {
        EXPECT_EQ(table.Load(path), 0);
        AskEverything(table); // requests make type names upper case, once
        expected = AskEverything(table);
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

void RunTogether(const std::vector<std::function<void()>>& works)
{
    std::vector<std::thread> running(works.begin(), works.end());
    for (std::thread& thread : running)
        thread.join();
}

TEST(MixedThreads, AnswerAsOneThread)
{
    const CPlant plant;
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
    const CPlant plant;
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
