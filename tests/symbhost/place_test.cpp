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
                          "VAR PID1 Pid block 6 @100 size 12 VAR HALF DINT block 5 @26 size 4\n";

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
        {{""}, "2"},
    };
    const std::string plant = Export(kPlant);
    for (const auto& row : cases) {
        std::vector<std::string> arguments = {"at", "--json", plant};
        arguments.insert(arguments.end(), row.places.begin(), row.places.end());
        EXPECT_EQ(Outcome(Run(arguments), "name"), row.names) << row.places.front();
    }
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
