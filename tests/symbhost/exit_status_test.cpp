// What ends the program, with which status and which message.
#include "symbhost/HostFixture.h"

#include "platform/win32/Library.h"

#include <filesystem>

namespace {

constexpr char kPlant[] = "VAR W1 WORD AT %MW10 block 5 @20 size 2 VAR I1 INT AT %MW11 block 5 @22 size 2";

class ExitStatusTest : public HostTest
{};

TEST_F(ExitStatusTest, TellsWhatWentWrong)
{
    const std::string plant = Export(kPlant);
    const std::string empty = folder.WriteFile("empty.kds", "<a><dataBlock/></a>");
    const std::string library = ProgramFolder() + SHARED_LIBRARY_NAME("symbplatform");
    const std::string broken = folder.WriteFile("broken.kds", "<LocatedSymbolTable><dataBlock>");
    const struct
    {
        std::vector<std::string> arguments;
        int status;
        std::string errors; // a part of them; empty: there are none
    } cases[] = {
        {{"--version"}, 0, ""},
        {{"resolve", "--help"}, 0, ""},
        {{"info", plant}, 0, ""},
        {{"resolve", plant, "W1"}, 0, ""},
        {{"resolve", plant, "NOPE", "W1"}, 1, ""},
        {{"resolve", plant, ""}, 1, ""},
        {{"browse", plant, "NOPE"}, 1, "listing NOPE failed: 0x80070057"},
        {{"browse", plant, "W1", "--fields", "A"}, 1, "listing W1 failed: 0x80070057"},
        {{"list", plant, ""}, 1, "an empty PATH is no symbol"},
        {{"browse", plant, "W1["}, 1, "listing W1 failed: 0x80070057"},
        {{"browse", plant, "."}, 1, "listing . failed: 0x80070057"},
        {{"map", plant, "--block", "99"}, 0, "no variable lies in block 99"},
        {{"map", plant, "--block", "70000"}, 2, "--block: Value 70000 not in range 0 to 65535"},
        {{"browse", plant, "W1", "--tree"}, 1, "listing W1 failed: 0x80070057"},
        {{"browse", empty}, 0, "gave no variables; symbhost check tells why"},
        {{}, 2, "subcommand"},
        {{"explode", plant}, 2, "--help"},
        {{"resolv", plant, "W1"}, 2, "there is no command resolv; did you mean resolve?"},
        {{"resolve", plant}, 2, "NAME is required"},
        {{"why", plant, "--from", folder.Path()}, 2, "cannot be read"},
        {{"why", plant, "--column", "X"}, 2, "--from"},
        {{"info", plant, "--", "X"}, 2, "nothing behind --"},
        {{"browse", plant, "--pattern=", "W"}, 2, "--pattern= has no value"},
        {{"browse", plant, "--pattern", "*1"}, 2, "--pattern: text behind a *"},
        {{"browse", plant, "--fields", "AX"}, 2, "field codes"},
        {{"browse", plant, "--tree", "--depth", "17"}, 2, "not in range"},
        {{"browse", plant, "--json", "--page", "2"}, 2, "excludes"},
        {{"info", folder.FilePath("none.kds")}, 2, "level 2: KorvaPro Reader <" + folder.FilePath("none.kds") + "> "},
        {{"info", folder.Path()}, 2, "cannot be loaded: it is no file, or no well-formed XML"},
        {{"info", broken}, 2, "cannot be loaded: it is no"},
        {{"info", "\x1b[31m"}, 2, "the export \\x1b[31m cannot be loaded: there is no such file"},
        {{"info", plant, "--plugin", folder.FilePath("none.so")}, 2, "cannot be loaded: there is no such file"},
        {{"info", plant, "--plugin", plant}, 2, "cannot be loaded: it is no library"},
        {{"info", plant, "--plugin", library}, 2, "does not export"},
    };
    for (const auto& row : cases) {
        const HostRun run = Run(row.arguments);
        SCOPED_TRACE(testing::PrintToString(row.arguments));
        EXPECT_EQ(run.status, row.status) << run.errors;
        EXPECT_TRUE(row.status != 2 || run.output.empty()) << run.output;
        EXPECT_EQ(run.errors.find('\x1b'), std::string::npos);
        if (row.errors.empty())
            EXPECT_EQ(run.errors, "");
        else
            EXPECT_NE(run.errors.find(row.errors), std::string::npos) << run.errors;
    }
}

TEST_F(ExitStatusTest, InfoDescribesTheLoad)
{
    const std::string plant = Export(kPlant);
    const std::string json = Run({"info", plant, "--json"}).output;
    EXPECT_TRUE(json.ends_with("\"variables\":2,\"leaves\":2,\"branches\":0,\"messages\":0}\n")) << json;
    const std::string output = Run({"info", plant}).output;
    for (const std::string& line :
         {"export       " + plant + "\n", std::string("type code    9\n"),
          std::string("description  KorvaPro exported located symbol table\n"), std::string("header name  Unknwow\n"),
          std::string("variables    2 ("), std::string("messages     0\n")})
        EXPECT_NE(output.find(line), std::string::npos) << line << output;
}

// The reader takes one line and goes, long before the listing ends.
TEST_F(ExitStatusTest, ReaderOfTheOutputGoesAway)
{
    const std::string plant = Export("TYPE Many ARRAY[1..200000] OF INT VAR TAB Many size 400000");
    const struct
    {
        std::vector<std::string> arguments;
        std::string firstLine;
    } cases[] = {{{"browse", plant, "TAB"}, "leaf    TAB[1]\n"},
                 {{"browse", plant, "--tree"}, plant + "\n"},
                 {{"browse", plant, "TAB", "--json"}, "[\n"}};
    for (const auto& row : cases) {
        const HostRun run = Run(row.arguments, {}, "| head -n 1");
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.output, row.firstLine);
        EXPECT_EQ(run.errors, "");
    }
}

TEST_F(ExitStatusTest, OutputThatCannotBeWritten)
{
    const std::string plant = Export(kPlant);
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {"list", plant}, {"browse", plant, "--csv"}, {"resolve", plant, "W1"}, {"info", plant}, {"--help"}}) {
        const HostRun run = Run(arguments, {}, ">/dev/full;:");
        EXPECT_EQ(run.status, 2);
        EXPECT_NE(run.errors.find("cannot be written"), std::string::npos) << run.errors;
    }
}

// What the system keeps temporary files in stays empty.
TEST_F(ExitStatusTest, LeavesNothingBehind)
{
    const std::string plant = Export(kPlant);
    EXPECT_EQ(Run({"info", plant}).status, 0);
    EXPECT_EQ(Run({"info", folder.FilePath("none.kds")}).status, 2);
    EXPECT_TRUE(std::filesystem::is_empty(folder.FilePath("temporary")));
}

} // namespace
