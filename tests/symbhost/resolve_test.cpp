// Names in, addresses out: as a table and as JSON.
#include "symbhost/HostFixture.h"

#include "symbhost/Text.h"

#include <nlohmann/json.hpp>

namespace {

constexpr char kPlant[] = "TYPE Motor STRUCT SPEED INT @4 size 2 'U/min' END\n"
                          "VAR W1 WORD AT %MW10 block 5 @20 size 2 'Größe' customer \"line 1\"\n"
                          "VAR MOTOR1 Motor block 5 @200 size 16 access 1\n"
                          "RAWVAR <variables name='ODD' typeName='INT' topologicalAddress='%MW1'>"
                          "<comment>a&#10;b&#27;[2J&#x9b;&#x202e;c</comment></variables>\n";

class ResolveTest : public HostTest
{};

TEST_F(ResolveTest, AlignsColumnsByCharacters)
{
    const std::string plant = Export(kPlant);
    const HostRun run = Run({"resolve", plant, "W1", "w1.15", "MOTOR1.SPEED", "NOPE.X", "W1.16"});
    EXPECT_EQ(run.output,
              "NAME          ADDRESS   TYPE  KIND  BLOCK  OFFSET  SIZE  BIT  ACCESS  COMMENT  CUSTOMER STRING\n"
              "W1            %MW10     WORD  EDT       5      20     2    -  rw      Größe    line 1\n"
              "w1.15         %MW10.15  WORD  EDT       5      20     2   15  rw      Größe    line 1\n"
              "MOTOR1.SPEED  -         INT   EDT       5     204     2    -  r       U/min\n"
              "NOPE.X        not served: no variable is called NOPE\n"
              "W1.16         not served: W1 is WORD of 2 bytes and has no bit 16; values of 2 bytes have the bits 0 to "
              "15\n");
    EXPECT_EQ(Run({"resolve", plant, "--why", "W1", "--", "-W"}).output,
              "NAME  ADDRESS  TYPE  KIND  BLOCK  OFFSET  SIZE  BIT  ACCESS  COMMENT  CUSTOMER STRING\n"
              "W1    %MW10    WORD  EDT       5      20     2    -  rw      Größe    line 1\n"
              "-W    not served, not-in-export: no variable is called -W\n");
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.status, 1);
}

TEST_F(ResolveTest, JsonKeepsTheOrderOfTheNames)
{
    const std::string plant = Export(kPlant);
    const HostRun run = Run({"resolve", plant, "--json", "MOTOR1.NOPE", "W1.3", "-", "NOPE"}, "MOTOR1.SPEED\n");
    const auto json = nlohmann::json::parse(run.output);
    EXPECT_EQ(json[0], (nlohmann::json{{"name", "MOTOR1.NOPE"}, {"result", "0x80070057"}}));
    EXPECT_EQ(json[1], nlohmann::json::parse(R"({"name":"W1.3","result":"0x00000000","address":"%MW10.3","type":"WORD",
        "typeCode":"0x02290148","kind":"EDT","block":5,"offset":20,"size":2,"bit":3,"byReference":false,
        "relativeOffset":0,"relativeSize":0,"access":"rw","comment":"Größe","customerString":"line 1"})"));
    EXPECT_EQ(json[2]["name"], "MOTOR1.SPEED");
    EXPECT_TRUE(json[2]["bit"].is_null());
    EXPECT_EQ(json[3]["message"], "KorvaPro Reader <" + plant + "> :SearchAndGetFF: invalid type for NOPE");
    EXPECT_EQ(json.size(), 4U);
}

TEST_F(ResolveTest, ReadsNamesFromStandardInput)
{
    const std::string plant = Export(kPlant);
    EXPECT_EQ(Run({"resolve", plant, "-"}, "").output, "");
    EXPECT_EQ(Run({"resolve", plant, "--json", "-"}, "").output, "[]\n");
    const auto json = nlohmann::json::parse(Run({"resolve", plant, "--json", "-"}, "W1\r\n\n\nw1.1\nODD").output);
    EXPECT_EQ(json.size(), 3U);
    EXPECT_EQ(json[2]["name"], "ODD"); // the last line has no end

    std::string many;
    for (int count = 0; count < 2500; ++count) // more than the table holds back
        many += "W1\n";
    const HostRun run = Run({"resolve", plant, "-"}, many);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(std::count(run.output.begin(), run.output.end(), '\n'), 2501);
}

TEST_F(ResolveTest, NonsenseDoesNothingToTheTerminal)
{
    const std::string plant = Export(kPlant);
    const std::string nonsense =
        std::string("AA\0B\n", 5) + "\x1b]0;x\x07\nBAD\xff\xc3\n" + std::string(60000, '.') + "\n";
    std::string many; // more than the table holds back, with ODD in front
    for (int count = 0; count < 600; ++count)
        many += "W1\n";
    const HostRun table = Run({"resolve", plant, "ODD", "-"}, many + nonsense);
    EXPECT_EQ(table.status, 1);
    EXPECT_EQ(table.output.find_first_of("\x1b\x07\xff"), std::string::npos);
    for (const char* const shown : {"a\\nb\\x1b[2J\\u009b\\u202ec", "AA\\x00B", "\\x1b]0;x\\x07", "BAD\\xff\\xc3"})
        EXPECT_NE(table.output.find(shown), std::string::npos) << shown;

    const auto json = nlohmann::json::parse(Run({"resolve", plant, "--json", "-"}, nonsense).output);
    EXPECT_EQ(json[0]["name"], std::string("AA\0B", 4));
    EXPECT_EQ(json[0]["result"], "0x80070057"); // what is in front of the null is not what was asked for
    EXPECT_EQ(json[2]["name"], "BAD\xef\xbf\xbd\xef\xbf\xbd");
    EXPECT_EQ(json.size(), 4U);
}

TEST(TextTest, PrintableEscapesWhatMovesTheTerminal)
{
    const struct
    {
        std::string text;
        std::string printable;
        std::size_t width;
    } cases[] = {
        {"Größe €😀", "Größe €😀", 8},
        {"\n\r\t\x1b\x7f", "\\n\\r\\t\\x1b\\x7f", 14},
        {"\x7f", "\\x7f", 4},
        {"\x1b[2J plain to the end", "\\x1b[2J plain to the end", 24},
        {"\xc2\x9b\xc2\x9f|\xe2\x80\xae|\xef\xbb\xbf", "\\u009b\\u009f|\\u202e|\\ufeff", 26},
        {"\x80|\xc3|\xe2\x82", "\\x80|\\xc3|\\xe2\\x82", 18},        // no character starts or ends here
        {"\xc0\x80|\xe0\x9f\xbf", "\\xc0\\x80|\\xe0\\x9f\\xbf", 21}, // longer than need be
        {"\xed\xa0\x80|\xf4\x90\x80\x80|\xff", "\\xed\\xa0\\x80|\\xf4\\x90\\x80\\x80|\\xff", 34},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(Printable(row.text), row.printable);
        EXPECT_FALSE(IsPlain(row.text)) << row.printable;
        EXPECT_EQ(DisplayWidth(row.printable), row.width) << row.printable;
    }
    EXPECT_TRUE(IsPlain(" from blank to ~"));
}

} // namespace
