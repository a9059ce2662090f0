// A dump counts when the load that was asked for wrote all of it.
#include "symbhost/HostFixture.h"

#include "symbhost/commands/DumpFile.h"

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
    EXPECT_EQ(Run({"dump", folder.FilePath("none.kds"), folder.Path()}).status, 2);
    for (const std::string& dir : {folder.FilePath("none"), std::string()}) {
        const HostRun run = Run({"dump", plant, dir});
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.output, "");
        EXPECT_NE(run.errors.find("no dump was written"), std::string::npos) << run.errors;
    }
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
