// Who lies where: at and map.
#include "symbhost/HostFixture.h"

#include <nlohmann/json.hpp>

namespace {

constexpr char kPlant[] = "TYPE Motor STRUCT SPEED INT @0 size 2 STATE WORD @2 size 2 END\n"
                          "DFB Pid INOUT PARA Motor @8 size 4 indirection 2 END\n"
                          "VAR WORD1 WORD AT %MW10 block 5 @20 size 2 VAR ALIAS1 INT AT %mw10 block 5 @20 size 2\n"
                          "VAR BIT11 BOOL AT %MW10.11 block 5 @21 size 1 bit 3\n"
                          "VAR BIT3 BOOL AT %MW10.3 block 5 @20 size 1 bit 3 VAR NOSIZE INT AT %MW11 block 5 @22\n"
                          "VAR MOTOR1 Motor AT %MW12 block 5 @24 size 4 VAR NOWHERE INT AT %MW10\n"
                          "VAR PID1 Pid block 6 @100 size 12 VAR HALF DINT AT 0.5 block 5 @26 size 4\n";

class PlaceTest : public HostTest
{
protected:
    // The command's status and, of its rows, the values of `field`, with a blank in front of each.
    static std::string Outcome(const HostRun& run, const char* field)
    {
        std::string text = std::to_string(run.status);
        if (!run.output.empty())
            for (const auto& row : nlohmann::json::parse(run.output))
                text += " " + row[field].get<std::string>();
        return text;
    }
};

TEST_F(PlaceTest, FindsWhatTouchesAPlace)
{
    const struct
    {
        std::vector<std::string> places;
        const char* names;
    } cases[] = {
        {{"5:20"}, "0 BIT3 WORD1 ALIAS1"},                                     // the bit first
        {{"5:21"}, "0 BIT11 WORD1 ALIAS1"},                                    // in the byte that holds it
        {{"5:20.11"}, "0 BIT11 WORD1 ALIAS1"},                                 // of the word
        {{"5:21.3"}, "0 BIT11 WORD1 ALIAS1"},                                  // the same bit by the odd byte
        {{"5:20.0"}, "0 WORD1 ALIAS1"},                                        // not the other bits of the byte
        {{"5:22"}, "0 NOSIZE"},                                                // its first byte
        {{"5:23"}, "1"},                                                       // and no other
        {{"5:25-26"}, "0 MOTOR1.SPEED MOTOR1.STATE MOTOR1 HALF"},              // listing order among equals
        {{"%MW10"}, "0 BIT11 BIT3 WORD1 ALIAS1"},                              // any case, all of both variables
        {{"%mw12", "5:22"}, "0 MOTOR1.SPEED MOTOR1.STATE MOTOR1 HALF NOSIZE"}, // one after the other
        {{"6:108"}, "0 PID1.PARA.SPEED PID1.PARA PID1"}, // at the offset relative to the parameter
        {{"0:0"}, "1"},                                  // what has no place lies nowhere
        {{"%MW99"}, "1"},
        {{"5:20", "5:23"}, "1 BIT3 WORD1 ALIAS1"},
        {{"5:"}, "2"},
        {{"65536:0"}, "2"},
        {{"5:4294967296"}, "2"},
        {{"5:9-8"}, "2"},
        {{"5:20.16"}, "2"},
        {{"5:20-"}, "2"},
        {{"5:20 "}, "2"},
        {{"12"}, "2"},
        {{"MOTOR1"}, "2"},
        {{"0.5"}, "0 MOTOR1.STATE MOTOR1 HALF"}, // an address where a symbol has it
        {{"5:22", "5:9-8"}, "2"},
        {{""}, "2"},
    };
    const std::string plant = Export(kPlant);
    for (const auto& row : cases) {
        std::vector<std::string> arguments = {"at", "--json", plant};
        arguments.insert(arguments.end(), row.places.begin(), row.places.end());
        EXPECT_EQ(Outcome(Run(arguments), "name"), row.names) << row.places.front();
    }
}

TEST_F(PlaceTest, MapsRunsOfBytes)
{
    const struct
    {
        const char* variables;
        std::vector<std::string> options;
        const char* rows;
    } cases[] = {
        {kPlant,
         {},
         "5:20-20 used WORD1,ALIAS1,BIT3; 5:21-21 used WORD1,ALIAS1,BIT11; 5:22-22 used NOSIZE; 5:23-23 free; "
         "5:24-25 used MOTOR1; 5:26-27 overlap MOTOR1,HALF; 5:28-29 used HALF; 6:100-111 used PID1; "},
        {kPlant, {"--block", "6"}, "6:100-111 used PID1; "},
        {kPlant, {"--block", "7"}, ""},
        // Lookups of these names answer with the member and with a bit.
        {"TYPE S STRUCT A INT END VAR M S block 1 size 2 VAR M.A DINT block 2 size 4 VAR 5 INT AT %M1 block 3 size 2",
         {},
         "1:0-1 used M; 2:0-3 used M.A; 3:0-1 used 5; "},
        // An alias inside an overlap and behind it; the same bit twice; the largest variable at the largest offset.
        {"VAR A DINT block 1 @0 size 8 VAR B DINT block 1 @4 size 8 VAR C INT block 1 @6 size 4\n"
         "VAR D BOOL block 1 @20 bit 1 size 1 VAR E BOOL block 1 @20 bit 1 size 1 VAR F BOOL block 1 @20 bit 2 size 1\n"
         "VAR H BOOL block 2 @2 bit 16 size 1 VAR I BOOL AT %M1 block 2 @4 bit 99 size 1 VAR G REAL block 65535 @-1 "
         "size -1",
         {},
         "1:0-3 used A; 1:4-5 overlap A,B; 1:6-7 overlap A,B,C; 1:8-9 used B,C; 1:10-11 used B; 1:12-19 free; "
         "1:20-20 overlap D,E,F; 2:2-2 used H; 2:3-3 free; 2:4-5 used I; 65535:4294967295-8589934589 used G; "},
    };
    for (const auto& row : cases) {
        std::vector<std::string> arguments = {"map", "--json", Export(row.variables)};
        arguments.insert(arguments.end(), row.options.begin(), row.options.end());
        std::string rows;
        for (const auto& run : nlohmann::json::parse(Run(arguments).output)) {
            EXPECT_EQ(run["bytes"], run["to"].get<long long>() - run["from"].get<long long>() + 1);
            rows += run["block"].dump() + ":" + run["from"].dump() + "-" + run["to"].dump() + " " +
                    run["state"].get<std::string>();
            for (const auto& name : run["symbols"])
                rows += (&name == &run["symbols"].front() ? " " : ",") + name.get<std::string>();
            rows += "; ";
        }
        EXPECT_EQ(rows, row.rows);
    }
}

TEST_F(PlaceTest, DrawsTheMap)
{
    const std::string svg = folder.FilePath("map.svg");
    const std::string plant = Export(std::string(kPlant) + "VAR \"<&>\" INT block 6 @9000 size 2");
    EXPECT_EQ(Run({"map", "--svg", svg, plant}).status, 0);
    const std::string picture = folder.ReadFile("map.svg");
    for (const char* text :
         {"<path class=\"overlap\" d=\"M506 118h32v16H506z\"><title>5:26-27 overlap MOTOR1 (Motor), HALF "
          "(DINT)</title>",
          "<path class=\"block\"", ">⋮ 8,888 bytes free<", " &lt;&amp;&gt; (INT)</title>", "prefers-color-scheme"})
        EXPECT_NE(picture.find(text), std::string::npos) << text << '\n' << picture;
    EXPECT_EQ(Run({"map", "--svg", folder.FilePath("none/map.svg"), plant}).status, 2);
}

TEST_F(PlaceTest, FindsEveryServedRowOfTheList)
{
    const std::string plant = EXAMPLES_DIR "/plant.kds";
    std::vector<std::string> arguments = {"at", "--json", plant};
    std::vector<std::string> served;
    for (const auto& row : nlohmann::json::parse(Run({"list", "--all", "--json", plant}).output)) {
        if (!row["served"])
            continue;
        served.push_back(row["name"]);
        const unsigned offset = row["offset"].get<unsigned>() + row["relativeOffset"].get<unsigned>();
        const std::string bit = row["bit"].is_null() ? "" : "." + row["bit"].dump();
        arguments.push_back(row["block"].dump() + ":" + std::to_string(offset) + bit);
    }
    // The places are answered in their order.
    auto missing = served.begin();
    for (const auto& row : nlohmann::json::parse(Run(arguments).output))
        if (missing != served.end() && row["name"] == *missing)
            ++missing;
    EXPECT_GT(served.size(), 500U);
    EXPECT_EQ(missing, served.end()) << *missing;
}

} // namespace
