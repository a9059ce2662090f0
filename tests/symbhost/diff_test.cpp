// What changed between two exports.
#include "symbhost/HostFixture.h"

#include <nlohmann/json.hpp>

namespace {

constexpr char kMotor[] = "TYPE Motor STRUCT SPEED INT @0 size 2 END\n";

class DiffTest : public HostTest
{
protected:
    HostRun Diff(const std::string& before, const std::string& after, std::vector<std::string> options) const
    {
        options.insert(options.begin(), {"diff", WriteExport(folder, kMotor + before, "before.kds"),
                                         WriteExport(folder, kMotor + after, "after.kds")});
        return Run(options);
    }
};

TEST_F(DiffTest, TellsEachChange)
{
    const std::string motor = "VAR M Motor AT %MW5 block 5 @10 size 2";
    const struct
    {
        std::string before, after;
        std::vector<std::string> options;
        const char* output; // without the last line
    } cases[] = {
        {"VAR A INT AT %MW1 block 5 @2 size 2", "VAR a int AT %MW1 block 5 @2 size 2", {}, ""},
        {motor, "VAR M Motor AT %MW5 block 6 @10 size 2", {}, "~ M  5:10 -> 6:10\n~ M.SPEED  5:10 -> 6:10\n"},
        {motor,
         "VAR M Motor AT %MW5 block 5 @10 size 4 'feed' customer \"x y\"",
         {"--name", "m"},
         "~ M  size 2 -> 4, comment \"\" -> \"feed\", customer string \"\" -> \"x y\"\n"},
        {"VAR A INT AT %MW1 block 5 @2 size 2 access 1",
         "VAR A WORD AT %MW2 block 5 @2 size 2",
         {},
         "~ A  INT -> WORD, access r -> rw, address \"%MW1\" -> \"%MW2\"\n"},
        {"VAR A BOOL AT %MW1.3 block 5 @2 size 1 bit 3",
         "VAR A BOOL AT %MW1.3 block 5 @3 size 1 bit 3",
         {},
         "~ A  5:2.3 -> 5:2.11\n"},
        // The parts of a sum; a bit that no word has.
        {"TYPE T STRUCT A INT @0 END DFB F IN P T @8 END VAR G F block 5 @10 size 12",
         "TYPE T STRUCT A INT @2 END DFB F IN P T @6 END VAR G F block 5 @10 size 12",
         {"--name", "*.a"},
         "~ G.P.A  offset 18 -> 16, relative offset 0 -> 2\n"},
        {"VAR A BOOL AT %M1 block 5 bit 77", "VAR A BOOL AT %M1 block 5 bit 78", {}, "~ A  bit 77 -> 78\n"},
        // Served or not; what is not known of one is no change.
        {"VAR A INT AT %MW1 block 5 @2 size 2 VAR B INT block 5",
         "VAR A INT block 5 @2 size 2 VAR B INT AT %M1 block 5",
         {"--only", "served,unserved"},
         "~ A  address \"%MW1\" -> \"\", not served: no-address\n~ B  address \"\" -> \"%M1\", served\n"},
        {"VAR A INT block 5 @4 VAR B INT block 5 @4 VAR C INT block 1",
         "VAR A INT block 5 @6 VAR B INT block 5 @6",
         {"--from", folder.WriteFile("names", "b\n\nc \nnope\n")},
         "~ B  5:4 -> 5:6\n- C\n"},
        // Removed and changed in the order of the one, then added in the order of the other.
        {"VAR HORN INT block 5 @2 VAR A INT block 5 @4 VAR GONE Motor block 1",
         "VAR NEW2 INT block 5 @190 VAR A INT block 5 @6 VAR NEW1 Motor block 7",
         {},
         "- HORN\n~ A  5:4 -> 5:6\n- GONE\n- GONE.SPEED\n+ NEW2  5:190  INT\n+ NEW1  7:0  Motor\n"
         "+ NEW1.SPEED  7:0  INT\n"},
        {motor, "", {"--only", "added"}, ""},
    };
    for (const auto& row : cases) {
        const HostRun run = Diff(row.before, row.after, row.options);
        const std::size_t lastLine = run.output.rfind('\n', run.output.size() - 2) + 1;
        EXPECT_EQ(run.output.substr(0, lastLine), row.output) << run.errors;
        EXPECT_EQ(run.status, lastLine == 0 ? 0 : 1);
    }
    EXPECT_TRUE(Diff(motor, "VAR N INT block 2", {}).output.ends_with("\n0 changed, 2 removed, 1 added\n"));
    // A line that can be no name leaves the comparison incomplete.
    for (const std::string& line : std::vector<std::string>{"\"M", "M\xff", {"M\0", 2}}) {
        const std::string names = folder.WriteFile("names", "Tag\n" + line + "\nM\n");
        const HostRun faulty = Diff(motor, motor, {"--from", names, "--column", "Tag"});
        EXPECT_NE(faulty.errors.find("not compared: M"), std::string::npos) << faulty.errors;
        EXPECT_EQ(faulty.status, 1);
    }
    EXPECT_EQ(Diff(motor, motor, {"--only", "renamed"}).status, 2);
    EXPECT_EQ(Run({"diff", folder.FilePath("before.kds"), folder.FilePath("missing.kds")}).status, 2);
}

TEST_F(DiffTest, PrintsBothRows)
{
    const std::string before = "VAR A INT AT %MW1 block 5 @2 size 2";
    const std::string after = "VAR A WORD block 5 @2 size 2 VAR B INT block 6";
    const auto json = nlohmann::json::parse(Diff(before, after, {"--json"}).output);
    const auto rows = nlohmann::json::parse(Run({"list", "--json", folder.FilePath("after.kds")}).output);
    ASSERT_EQ(json.size(), 2U);
    EXPECT_EQ(json[0]["change"].dump(), R"(["retyped","text","unserved"])");
    EXPECT_EQ(json[0]["before"]["typeCode"], "0x0A590148");
    EXPECT_EQ(json[0]["after"], rows[0]);
    EXPECT_EQ(json[1].dump(), R"({"after":)" + rows[1].dump() + R"(,"before":null,"change":["added"],"name":"B"})");

    const std::string csv = Diff(before, after, {"--csv", "--name", "a"}).output;
    EXPECT_TRUE(csv.starts_with("name,change,before_name,before_result,before_address,")) << csv;
    const std::string names = folder.WriteFile("names", "No;Tag\n7;a\n");
    EXPECT_TRUE(
        Diff(before, after, {"--csv", "--from", names, "--column", "tag"}).output.ends_with(",no-address,7\r\n"));
    EXPECT_NE(csv.find("\r\nA,retyped+text+unserved,A,0x00000000,%MW1,INT,0x0A590148,EDT,5,2,2,,"), std::string::npos);
}

TEST_F(DiffTest, FindsNothingBetweenAnExportAndItself)
{
    const std::string twice = Export("TYPE Twice STRUCT A INT B INT A INT END VAR D Twice block 9 VAR E Twice block 9");
    for (const std::string& path : {std::string(EXAMPLES_DIR "/plant.kds"), twice}) {
        const HostRun run = Run({"diff", path, path});
        EXPECT_EQ(run.output, "0 changed, 0 removed, 0 added\n");
        EXPECT_EQ(run.status, 0);
    }
}

} // namespace
