// Symbols down to the last value, why they are served or not, and names from files.
#include "symbhost/HostFixture.h"
#include "symbhost/HostRows.h"

namespace {

// Something of everything that can stand in the way of a lookup.
constexpr char kPlant[] =
    "TYPE Pair ARRAY[0..1] OF INT\n"
    "TYPE Motor STRUCT SPEED INT @0 size 2 'rpm' SECRET WORD @2 size 2 hidden 1 LIMITS Pair @4 size 4 A.B INT @8 5 INT "
    "@8 END\n"
    "TYPE Odd STRUCT X Missing @0 size 4 END\n"
    "TYPE Loop STRUCT VALUE INT @0 size 2 NEXT Loop @2 size 2 END\n"
    "TYPE Back ARRAY[5..1] OF INT\n"
    "TYPE Empty STRUCT END\n"
    "DFB Ramp IN STEP REAL @0 size 4 M Motor @4 size 10 END\n"
    "DFB Pid IN INNER Ramp @0 size 14 SP REAL @14 size 4 OTHER Ramp @18 size 4 END\n"
    "VAR W1 WORD AT %MW10 block 5 @20 size 2 'a;\"b\"' customer \"Line 1\"\n"
    "VAR FLAG BOOL AT %MW12.11 block 5 @25 size 1 bit 3\n"
    "VAR LEVEL REAL AT %MD40 block 5 @80 size 4 access 1 'Tank Level'\n"
    "VAR LOOSE INT block 7 @2 size 2\n"
    "VAR MOTOR1 Motor AT %MW100 block 5 @200 size 10\n"
    "VAR ODD1 Odd block 7 @40 size 4 VAR LOOP1 Loop block 7 @50 size 4 VAR BACK1 Back block 7 @60 size 4\n"
    "VAR PID1 Pid block 8 @0 size 22\n"
    "VAR DROPPED Empty VAR \"A.C\" INT AT %MW7 size 2 VAR LOST Nowhere VAR MOTOR1 Nowhere\n"
    "VAR GRID ARRAY[1..2,3..4] OF INT block 9 @0 size 8\n";

// Names for which lookups answer with other symbols.
constexpr char kReadOtherwise[] =
    "TYPE Count STRUCT 5 INT @0 size 2 END TYPE Counts STRUCT C Count @2 size 2 END\n"
    "VAR \" W1\" WORD AT %MW15 block 5 @30 size 2 VAR PAIR Counts block 10 @0 size 4 VAR PAIR.C INT block 11\n";

class ListTest : public HostTest
{
protected:
    const std::string plant = Export(kPlant);
};

TEST_F(ListTest, WalksDownToTheLastValue)
{
    const std::vector<std::string> keys = {"name", "block", "offset", "size", "bit", "level", "reason"};
    const struct
    {
        std::vector<std::string> arguments;
        std::string rows;
        int status;
        std::string errors; // a part; empty: none
    } cases[] = {
        {{"--name", "*l?*"},
         "FLAG 5 24 2 11 leaf \nLEVEL 5 80 4 - leaf type-not-served\nLOOSE 7 2 2 - leaf no-address\n"
         "MOTOR1.LIMITS[0] 5 204 2 - leaf \nMOTOR1.LIMITS[1] 5 206 2 - leaf \nLOOP1.VALUE 7 50 2 - leaf \n"
         "PID1.INNER.M.LIMITS[0] 8 0 2 - leaf \nPID1.INNER.M.LIMITS[1] 8 0 2 - leaf \n",
         1,
         "below LOOP1.NEXT, its type LOOP stands above it"},
        {{"motor1", "--all", "GRID[1].", "--elements", "1"},
         "motor1 5 200 10 - branch not-a-value\nmotor1.SPEED 5 200 2 - leaf \nmotor1.LIMITS 5 204 4 - branch \n"
         "motor1.LIMITS[0] 5 204 2 - leaf \nmotor1.A.B - - - - leaf unreachable-name\n"
         "motor1.5 - - - - leaf unreachable-name\n"
         "GRID[1] 9 0 4 - branch \nGRID[1][3] 9 0 2 - leaf \n",
         0,
         ""},
        {{"PID1", "--all", "ODD1", "--name", "*[!LIMITS]*"}, "", 0, ""}, // brackets mean themselves
        {{"PID1", "--all", "ODD1", "--type", "ramp"}, "PID1.INNER 8 0 14 - branch \n", 0, ""},
        {{"PID1.INNER", "ODD1", "BACK1", "--all"},
         "PID1.INNER 8 0 14 - branch \nPID1.INNER.STEP - - - - leaf nested-block\n"
         "PID1.INNER.M - - - - branch nested-block\nPID1.INNER.M.SPEED 8 0 2 - leaf \n"
         "PID1.INNER.M.LIMITS 8 0 4 - branch \nPID1.INNER.M.LIMITS[0] 8 0 2 - leaf \n"
         "PID1.INNER.M.LIMITS[1] 8 0 2 - leaf \nPID1.INNER.M.A.B - - - - leaf unreachable-name\n"
         "PID1.INNER.M.5 - - - - leaf unreachable-name\n"
         "ODD1 7 40 4 - branch not-a-value\nODD1.X 7 40 4 - branch \nBACK1 7 60 4 - branch not-a-value\n",
         0,
         ""},
        {{" W1", "--all", "PAIR.C.5", "PAIR.C"}, // not what a lookup finds there, unless that is listed, too
         " W1 5 30 2 - leaf unreachable-name\nPAIR.C.5 - - - - leaf unreachable-name\n"
         "PAIR.C 10 2 2 - branch \nPAIR.C.5 - - - - leaf unreachable-name\n",
         0,
         ""},
        {{"LEVEL", "PID1.INNER.STEP", "W1.5", "NOPE", "MOTOR1.NOPE"},
         "LEVEL 5 80 4 - leaf type-not-served\nPID1.INNER.STEP - - - - leaf nested-block\nW1.5 5 20 2 5 leaf \n",
         1,
         "there is no symbol NOPE"},
        {{"--comment", "TANK", "--customer", ""}, "LEVEL 5 80 4 - leaf type-not-served\n", 1, "LOOP1.NEXT"},
        {{"--customer", "line", "A.C", "W1"}, "W1 5 20 2 - leaf \n", 0, ""},
    };
    const std::string odd = Export(std::string(kPlant) + kReadOtherwise);
    for (const auto& row : cases) {
        std::vector<std::string> arguments = {"list", odd, "--json"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        const HostRun run = Run(arguments);
        SCOPED_TRACE(testing::PrintToString(row.arguments));
        EXPECT_EQ(ShortRows(run.output, keys), row.rows);
        EXPECT_EQ(run.status, row.status);
        EXPECT_EQ(run.errors.empty(), row.errors.empty()) << run.errors;
        EXPECT_NE(run.errors.find(row.errors), std::string::npos) << run.errors;
    }
}

TEST_F(ListTest, HoldsTheSameFieldsInEveryForm)
{
    const std::vector<std::string> arguments = {"list", plant, "W1", "LEVEL"};
    const auto with = [&](const char* form) {
        std::vector<std::string> all = arguments;
        all.emplace_back(form);
        return Run(all).output;
    };
    EXPECT_EQ(with("--csv"),
              "name,result,address,type,typeCode,kind,block,offset,size,bit,byReference,relativeOffset,relativeSize,"
              "access,comment,customerString,level,served,reason\r\n"
              "W1,0x00000000,%MW10,WORD,0x00A90148,EDT,5,20,2,,false,0,0,rw,\"a;\"\"b\"\"\",Line 1,leaf,true,\r\n"
              "LEVEL,0xFFFFFFFF,%MD40,REAL,,,5,80,4,,,,,r,Tank Level,,leaf,false,type-not-served\r\n");
    EXPECT_EQ(
        with("--json"),
        R"([
  {"name":"W1","result":"0x00000000","address":"%MW10","type":"WORD","typeCode":"0x00A90148","kind":"EDT","block":5,)"
        R"("offset":20,"size":2,"bit":null,"byReference":false,"relativeOffset":0,"relativeSize":0,"access":"rw",)"
        R"("comment":"a;\"b\"","customerString":"Line 1","level":"leaf","served":true,"reason":""},
  {"name":"LEVEL","result":"0xFFFFFFFF","address":"%MD40","type":"REAL","typeCode":null,"kind":null,"block":5,)"
        R"("offset":80,"size":4,"bit":null,"byReference":null,"relativeOffset":null,"relativeSize":null,)"
        R"("access":"r","comment":"Tank Level","customerString":"","level":"leaf","served":false,)"
        R"("reason":"type-not-served"}
]
)");
    EXPECT_EQ(Run(arguments).output,
              "NAME   ADDRESS  TYPE  KIND  BLOCK  OFFSET  SIZE  BIT  ACCESS  REASON           COMMENT     "
              "CUSTOMER STRING  LEVEL  SERVED  RESULT      TYPE CODE   BY REFERENCE  RELATIVE OFFSET  RELATIVE SIZE\n"
              "W1     %MW10    WORD  EDT       5      20     2    -  rw                       a;\"b\"       "
              "Line 1           leaf   true    0x00000000  0x00A90148  false                       0              0\n"
              "LEVEL  %MD40    REAL  -         5      80     4    -  r       type-not-served  Tank Level  "
              "                 leaf   false   0xFFFFFFFF  -           -                           -              -\n");
}

// A listing ends at the plug-in's limit of elements.
TEST_F(ListTest, TellsWhatIsCut)
{
    const std::string huge = Export("TYPE Huge ARRAY[-2000000000..2000000000] OF BOOL VAR TAB Huge\n"
                                    "VAR LAST ARRAY[1..9] OF BOOL");
    const HostRun cut = Run({"browse", huge, "TAB"}, {}, "| tail -n 1");
    EXPECT_EQ(cut.output, "leaf    TAB[-1998951425]\n");
    EXPECT_EQ(cut.errors, "symbhost: listing TAB is not complete: there are more than the 1048576 elements that a "
                          "listing holds at most\n");
    EXPECT_EQ(cut.status, 1);
    const HostRun few = Run({"list", huge, "--elements", "2", "--json"});
    EXPECT_EQ(ShortRows(few.output, {"name"}), "TAB[-2000000000]\nTAB[-1999999999]\nLAST[1]\nLAST[2]\n");
    EXPECT_EQ(few.errors, "");
}

// What list says of a symbol is what a lookup answers, and what why says.
TEST_F(ListTest, AgreesWithResolveAndWhy)
{
    for (const std::string& file : {plant, std::string(EXAMPLES_DIR "/plant.kds")}) {
        const auto rows = nlohmann::json::parse(Run({"list", file, "--json"}).output);
        std::string names;
        for (const auto& row : rows)
            names += row["name"].get<std::string>() + "\n";
        auto answers = nlohmann::json::parse(Run({"resolve", file, "--why", "--json", "--from", "-"}, names).output);
        ASSERT_EQ(answers.size(), rows.size());
        for (std::size_t at = 0; at < rows.size(); ++at) {
            answers[at].erase("text");
            answers[at].erase("message");
            for (const auto& [key, value] : answers[at].items())
                EXPECT_EQ(rows[at][key], value) << rows[at]["name"] << " " << key;
        }
    }
}

TEST_F(ListTest, TellsWhy)
{
    const struct
    {
        std::string name;
        std::string reason; // empty: served
        std::string text;   // a part
    } cases[] = {
        {"motor1.speed", "", "INT at block 5, offset 200, 2 bytes, access rw"},
        {"MOTOR1.SECRET.5", "", "hidden"},
        {"GRID[1", "", "offset 0"},
        {"MOTOR1.LIMITS[x]", "not-a-path", "brackets hold numbers"},
        {"A.C", "unreachable-name", "next step"},
        {"MOTOR1.A.B", "unreachable-name", "MOTOR1"},
        {"PID1.INNER.M.5", "unreachable-name", "a member of PID1.INNER.M"},
        {"MOTOR.SPEED", "not-in-export", "names like it: MOTOR1"},
        {"dropped.X", "unknown-type", "is declared, but was dropped"},
        {"LOST", "unknown-type", "\"Nowhere\", which is declared nowhere"},
        {"ODD1.X.Y", "unknown-type", "ODD1.X is of type \"MISSING\""},
        {"MOTOR1.3", "not-a-value", "MOTOR1 is of type Motor; a host asks for what is below it, such as MOTOR1.SPEED"},
        {"LEVEL", "type-not-served", "LEVEL is REAL"},
        {"LOOSE", "no-address", "LOOSE"},
        {"W1.16", "no-bit", "no bit 16"},
        {"MOTOR1.LIMITS[1].16", "no-bit", "MOTOR1.LIMITS[1] is INT"},
        {"FLAG.3", "no-bit", "FLAG is a bit itself"},
        {"W1.X", "nothing-below", "W1 is WORD"},
        {"BACK1[3]", "unusable-array", "ARRAY[5..1] OF INT"},
        {"GRID[2][5]", "index-outside", "GRID[2] has the elements 3 to 4"},
        {"PID1.OTHER.STEP", "removed-block", "PID1.OTHER is a function block of type Ramp"},
        {"PID1.INNER.STEP", "nested-block", "PID1.INNER.STEP"},
        {"PID1.INNER.M", "nested-block", "PID1.INNER.M"},
        {"MOTOR1.SPED.X", "no-member", "names like it: SPEED; it has the members SPEED, LIMITS, A.B"},
        {"MOTOR1[1]", "no-member", "MOTOR1 is no array"},
        {"GRID.X.Y", "no-member", "like GRID[1]"},
    };
    std::vector<std::string> arguments = {"why", plant, "--json"};
    for (const auto& row : cases)
        arguments.push_back(row.name);
    const HostRun run = Run(arguments);
    EXPECT_EQ(run.status, 1);
    const auto answers = nlohmann::json::parse(run.output);
    ASSERT_EQ(answers.size(), std::size(cases));
    for (std::size_t at = 0; at < answers.size(); ++at) {
        EXPECT_EQ(answers[at]["reason"], cases[at].reason) << answers[at];
        EXPECT_EQ(answers[at]["served"], cases[at].reason.empty());
        EXPECT_NE(answers[at]["text"].get<std::string>().find(cases[at].text), std::string::npos) << answers[at];
    }
    EXPECT_EQ(Run({"why", plant, "W1", "GRID[1][3]"}).status, 0);
}

TEST_F(ListTest, ReadsNamesFromFiles)
{
    const std::string plain = "\xEF\xBB\xBF W1\t\r\n\n" + std::string(70000, 'L') + "\nGröße\nLOOSE";
    const std::string plainRows = "W1 \n" + std::string(60, 'L') +
                                  " not-a-path\nGröße not-in-export\n"
                                  "LOOSE no-address\n";
    const std::string wide("\xFF\xFEW\0001\0\n\0\x3D\xD8\0\xDE\n\0\x3D\xD8X\0\n\0", 20);
    const struct
    {
        std::string bytes;
        std::string column;
        std::string rows; // nothing: refused
    } cases[] = {
        {plain, "", plainRows},
        {wide, "", "W1 \n😀 not-in-export\n\uFFFDX not-in-export\n"},
        {std::string("\0W\0001\0\n\0L\0X", 11), "", "W1 \nLX not-in-export\n"},
        {std::string("W\0001\0\n\0", 6), "", "W1 \n"},
        {"No,Tag;x;tag\r\n1;\"W1\"\r\n2\r\n;\"A\n\"\"B\";;;\n", "no,TAG",
         "1 not-in-export\n2 not-in-export\n not-a-path\n"},
        {"Tag\tNo,;\n\"W1\"\t\"\"\nA\xFF\t", "Tag", "W1 \nA\uFFFD not-a-path\n"},
        // Quotes that nothing closes, or something that was not meant to; a line end inside quotes.
        {"Tag,No\n\"W1\nW1,1\n\"LOOSE\n\"W1\"\nW1,\"a\nb\"\nLOOSE,\"\nW1,\"x\ny\"", "Tag",
         "W1 not-a-path\nW1 \nLOOSE not-a-path\nW1 \nW1 \nLOOSE not-a-path\nW1 \n"},
        {"Tag\nW1\n", "Name", ""},
        {"", "Name", ""},
    };
    for (const auto& row : cases) {
        std::vector<std::string> arguments = {"why", plant, "--json", "--from", folder.WriteFile("names", row.bytes)};
        if (!row.column.empty())
            arguments.insert(arguments.end(), {"--column", row.column});
        const HostRun run = Run(arguments);
        EXPECT_EQ(run.status == 2, row.rows.empty()) << run.errors;
        EXPECT_EQ(run.output.empty() ? "" : ShortRows(run.output, {"name", "reason"}), row.rows);
    }
    // The other columns go with each name.
    const HostRun run = Run({"resolve", plant, "NOPE", "--csv", "--why", "--from", "-", "--column", "Tag"},
                            "No,Tag,Note\n7,W1,\"a,b\"\n8\n");
    EXPECT_NE(run.output.find(",true,,\"WORD at block 5, offset 20, 2 bytes, access rw\",7,\"a,b\"\r\n"),
              std::string::npos)
        << run.output;
    EXPECT_NE(run.output.find(",8,\r\n"), std::string::npos) << run.output;
    EXPECT_EQ(run.status, 1);
}

} // namespace
