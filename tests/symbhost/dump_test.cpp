// A dump counts when the load that was asked for wrote all of it.
#include "symbhost/HostFixture.h"

#include "symbhost/plugin/DumpFile.h"

#include <algorithm>

namespace {

class DumpTest : public HostTest
{};

TEST_F(DumpTest, PrintsThePathOfTheDump)
{
    const std::string plant = Export("VAR W1 WORD AT %MW10 size 2");
    std::string name = plant;
    std::replace(name.begin(), name.end(), '/', '_');
    for (const std::string end : {"", "/"}) { // the second dump replaces the first one
        const HostRun run = Run({"dump", plant, folder.Path() + end});
        EXPECT_EQ(run.status, 0) << run.errors;
        EXPECT_EQ(run.output, folder.FilePath(name + ".log") + "\n");
    }
    EXPECT_NE(folder.ReadFile(name + ".log").find("XMLItem W1\r\n"), std::string::npos);
}

// A dump that is not written whole leaves the folder as it was.
TEST_F(DumpTest, KeepsWhatWasThere)
{
    const std::string dumps = folder.FilePath("dumps");
    const std::string plant = Export("VAR W1 WORD AT %MW10 size 2");
    const std::string other = WriteExport(folder, "VAR W2 WORD", "other.kds");
    const std::string broken = folder.WriteFile("broken.kds", "<a>");
    std::filesystem::create_directories(DumpPath(dumps, other)); // in the way
    const auto filesThere = [&dumps] { return std::distance(std::filesystem::directory_iterator(dumps), {}); };
    EXPECT_EQ(Run({"info", plant, "--dump-dir", dumps}).status, 0);
    EXPECT_EQ(filesThere(), 2);
    const struct
    {
        std::vector<std::string> arguments;
        std::string errors;
    } cases[] = {
        {{"dump", broken, dumps}, "cannot be loaded"},
        {{"dump", folder.FilePath("none.kds"), dumps}, "cannot be loaded"},
        {{"dump", other, dumps}, "no dump was written to " + DumpPath(dumps, other)},
        {{"resolve", plant, "W1", "--dump-dir", folder.FilePath("none")}, "no dump can be written into"},
        {{"dump", plant, ""}, "is empty"},
    };
    for (const auto& row : cases) {
        const HostRun run = Run(row.arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.output, "");
        EXPECT_NE(run.errors.find(row.errors), std::string::npos) << run.errors;
        EXPECT_EQ(filesThere(), 2) << row.errors;
    }
}

// Whenever the signal comes, there is a whole dump or none.
TEST_F(DumpTest, AnInterruptLeavesNothingHalfDone)
{
    std::string many;
    for (int number = 0; number < 5000; ++number)
        many += "VAR NAME" + std::to_string(number) + " WORD AT %MW10 size 2\n";
    const std::string plant = Export(many);
    const std::string dumps = folder.FilePath("dumps");
    std::filesystem::create_directory(dumps);
    const std::string program =
        ProgramFolder() + "symbhost dump " + plant + " " + dumps + " >" + folder.FilePath("out");
    bool isInterrupted = false;
    for (const std::string signal : {"INT", "TERM"}) {
        for (const std::string seconds : {"0.01", "0.03", "0.06", "0.1", "0.2"}) {
            const int status = std::system(("timeout -s " + signal + " " + seconds + " " + program).c_str());
            isInterrupted = isInterrupted || status != 0;
            for (const auto& entry : std::filesystem::directory_iterator(dumps)) {
                EXPECT_EQ(entry.path().string(), DumpPath(dumps, plant)) << signal << " " << seconds;
                EXPECT_TRUE(ReadWholeFile(entry.path()).ends_with("\r\n"));
            }
        }
    }
    EXPECT_TRUE(isInterrupted);
}

TEST_F(DumpTest, RefusesOldAndIncompleteFiles)
{
    EXPECT_EQ(DumpPath("/dumps", "a/b:c\\d.kds"), "/dumps/a_b_c_d.kds.log");
    const std::string head = "QUICK SAVE KDV V1.0 Unknwow 10\r\n";
    const std::string middle(100000, 'x');
    const std::string tail = "\r\nQUICK SAVE DICO V1.0 END OF FILE 1F \r\n";
    const struct
    {
        std::string bytes;
        DWORD earliest, latest;
        std::string problem; // the end of the text; empty: none
    } cases[] = {
        {head + middle + tail, 0x10, 0x20, ""},
        {head + tail, 0x10, 0x10, ""},
        {head + tail, 0xFFFFFFF0U, 0x20, ""}, // the count went past its end
        {head + tail, 0x11, 0x20, "is an older one"},
        {head + tail, 0x00, 0x0F, "is an older one"},
        {"", 0x10, 0x20, "is an older one"},
        {"QUICK SAVE KDV V1.0 Unknwow \r\n" + tail, 0, 0x20, "is an older one"},
        {head + middle, 0x10, 0x20, "is not complete"},
        {head + middle + tail.substr(0, tail.size() - 1), 0x10, 0x20, "is not complete"},
        {head + tail + "more\r\n", 0x10, 0x20, "is not complete"},
        {head + "\r\nQUICK SAVE DICO V1.0 END OF FILE \r\n", 0x10, 0x20, "is not complete"},
    };
    for (const auto& row : cases) {
        const std::string path = folder.WriteFile("dump.log", row.bytes);
        const std::string problem = DumpProblem(path, row.earliest, row.latest);
        EXPECT_EQ(problem.empty(), row.problem.empty()) << problem;
        EXPECT_TRUE(problem.ends_with(row.problem)) << problem;
    }
    EXPECT_EQ(DumpProblem(folder.Path(), 0, 1), "no dump was written to " + folder.Path());
}

} // namespace
