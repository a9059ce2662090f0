// Listings as lines, pages, trees, texts with fields and JSON.
#include "symbhost/HostFixture.h"

#include <nlohmann/json.hpp>

namespace {

constexpr char kPlant[] =
    "TYPE Table ARRAY[1..2] OF INT\n"
    "TYPE Motor STRUCT SPEED INT @0 size 2 'a|b' LIMITS Table @2 size 4 END\n"
    "TYPE Twice STRUCT A INT B INT A INT C INT A INT END\n"
    "TYPE Odd STRUCT X Missing END\n"
    "TYPE Loop STRUCT NEXT Loop END\n"
    "VAR W1 WORD AT %MW10 size 2 'x|y' VAR LEVEL REAL AT %MD20 size 4 VAR LOOSE INT block 9 size 2\n"
    "VAR MOTOR1 Motor AT %MW100 block 5 @200 size 6 VAR MOTORS Table block 9 size 4\n"
    "VAR DOUBLE1 Twice block 9 VAR ODD1 Odd block 9 VAR LOOP1 Loop block 9\n";

class BrowseTest : public HostTest
{
protected:
    HostRun Browse(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), {"browse", plant});
        return Run(arguments);
    }

    const std::string plant = Export(kPlant);
};

TEST_F(BrowseTest, ListsWhatIsThere)
{
    const std::string leaves = "leaf    W1\nleaf    LEVEL\nleaf    LOOSE\n";
    const std::string motors = "branch  MOTOR1\nbranch  MOTORS\n";
    const std::string others = "branch  DOUBLE1\nbranch  ODD1\nbranch  LOOP1\n";
    const struct
    {
        std::vector<std::string> arguments;
        std::string output;
    } cases[] = {
        {{}, leaves + motors + others},
        {{"--leaves"}, leaves},
        {{"--branches"}, motors + others},
        {{"--pattern", "MOTOR*"}, motors},
        {{"--pattern", "motor"}, ""},
        {{"--vartype", "4"}, "leaf    LEVEL\n"},
        {{"--unlocated", "--leaves"}, "leaf    LOOSE\n"},
        {{"motor1"}, "leaf    motor1.SPEED\nbranch  motor1.LIMITS\n"},
        {{"MOTOR1.LIMITS."}, "leaf    MOTOR1.LIMITS[1]\nleaf    MOTOR1.LIMITS[2]\n"}, // the dot is taken off
        {{"--page", "2", "--branches", "--pattern", "M"}, "-- page 1\n" + motors},
        {{"--page", "1", "--leaves", "--pattern", "L"},
         "-- page 1\nleaf    LEVEL\n-- page 2, from LOOSE\nleaf    LOOSE\n"},
        {{"--page", "0", "DOUBLE1", "--pattern", "A"},
         "-- page 1\nleaf    DOUBLE1.A\nleaf    DOUBLE1.A\nleaf    DOUBLE1.A\n"},
        {{"--fields", "CA"}, "NAME    COMMENT  ADDRESS\nW1      x|y      %MW10\nMOTOR1           %MW100\n"},
        {{"--fields", "AC", "MOTOR1", "--leaves"},
         "NAME   ADDRESS               COMMENT\nSPEED  U-INT (B:5 - O:200)   a|b\n"},
    };
    for (const auto& row : cases) {
        const HostRun run = Browse(row.arguments);
        SCOPED_TRACE(testing::PrintToString(row.arguments));
        EXPECT_EQ(run.output, row.output);
        EXPECT_EQ(run.errors, "");
        EXPECT_EQ(run.status, 0);
    }
}

// The second page resumes at the first A again and would do so for ever.
TEST_F(BrowseTest, EqualNamesEndThePages)
{
    const HostRun run = Browse({"DOUBLE1", "--page", "2"});
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.errors.find("comes back to A"), std::string::npos) << run.errors;
}

TEST_F(BrowseTest, DrawsTrees)
{
    EXPECT_EQ(Browse({"--tree", "--pattern", "MOTOR"}).output, plant + "\n"
                                                                       "├── MOTOR1\n"
                                                                       "│   ├── SPEED\n"
                                                                       "│   └── LIMITS\n"
                                                                       "│       ├── LIMITS[1]\n"
                                                                       "│       └── LIMITS[2]\n"
                                                                       "└── MOTORS\n"
                                                                       "    ├── MOTORS[1]\n"
                                                                       "    └── MOTORS[2]\n");
    EXPECT_EQ(Browse({"LOOP1", "--tree", "--depth", "2"}).output, "LOOP1\n└── NEXT\n    └── NEXT ...\n");
    EXPECT_EQ(Browse({"LOOP1", "--tree", "--depth", "16"}).status, 0); // a path has no more steps
    const HostRun odd = Browse({"ODD1", "--tree"});
    EXPECT_EQ(odd.output, "ODD1\n└── X\n    └── (cannot be listed: 0x80070057, no structure, array or function block "
                          "there)\n");
    EXPECT_EQ(odd.status, 1);
}

TEST_F(BrowseTest, PrintsJsonAndCsv)
{
    const auto entries = nlohmann::json::parse(Browse({"MOTOR1", "--json"}).output);
    EXPECT_EQ(entries, nlohmann::json::parse(R"([{"name":"SPEED","itemId":"MOTOR1.SPEED","kind":"leaf"},
        {"name":"LIMITS","itemId":"MOTOR1.LIMITS","kind":"branch"}])"));
    const auto fields = nlohmann::json::parse(Browse({"--json", "--fields", "AC", "--leaves"}).output);
    EXPECT_EQ(fields, nlohmann::json::parse(R"([{"name":"W1","address":"%MW10","comment":"x|y"}])"));
    EXPECT_EQ(Browse({"NOPE", "--json"}).output, "[]\n");
    EXPECT_EQ(Browse({"MOTOR1.LIMITS", "--csv"}).output,
              "name,itemId,kind\r\nLIMITS[1],MOTOR1.LIMITS[1],leaf\r\nLIMITS[2],MOTOR1.LIMITS[2],leaf\r\n");
    // Fields do not change the order of the listing.
    const std::string mixed = Export("TYPE T STRUCT A INT END VAR M1 T AT %MW1 VAR W1 WORD AT %MW2 VAR M2 T AT %MW3");
    EXPECT_EQ(Run({"browse", mixed, "--fields", "A", "--csv"}).output,
              "name,address\r\nM1,%MW1\r\nW1,%MW2\r\nM2,%MW3\r\n");
}

} // namespace
