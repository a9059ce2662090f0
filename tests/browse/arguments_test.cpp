// What both browse operations refuse, and that they add nothing then.
#include "browse/BrowseFixture.h"

#include <functional>

namespace {

const char kPlant[] = "TYPE Motor STRUCT SPEED INT @0 size 2 END\n"
                      "DFB Pid IN SP INT @0 size 2 END\n"
                      "VAR W1     WORD  AT %MW10 size 2\n"
                      "VAR MOTOR1 Motor AT %MW100 size 2\n"
                      "VAR PID1   Pid   AT %MW200 size 2\n"
                      "VAR TAB    ARRAY[0..1] OF INT AT %MW300 size 4\n";

TEST(BrowseArguments, OfATextListing)
{
    CLoadedExport plant(kPlant);
    CStringArray names;
    const auto browse = [&](LPCSTR filter, LPCSTR pattern, LPCSTR path, LONG count, const char* codes,
                            CStringArray* out) {
        return ResultName(
            plant.table->BrowseSymbols(filter, pattern, 0, path, 0, 0, FALSE, TRUE, FALSE, count, codes, out, nullptr));
    };
    EXPECT_EQ(browse(nullptr, "*", "", 0, nullptr, &names), "E_INVALIDARG");
    EXPECT_EQ(browse("", nullptr, "", 0, nullptr, &names), "E_INVALIDARG");
    EXPECT_EQ(browse("", "*", "", 1, nullptr, &names), "E_INVALIDARG");
    EXPECT_EQ(browse("", "*", "", 0, nullptr, nullptr), "E_INVALIDARG");
    EXPECT_EQ(names.GetSize(), 0);
    EXPECT_EQ(browse("", "*", nullptr, 0, nullptr, &names), "S_OK"); // no path is the root
    EXPECT_EQ(browse("", "*", "TAB", -1, nullptr, &names), "S_OK");  // no codes are needed for a count below 1
    EXPECT_EQ(browse("", "*", "NOTHING", 0, nullptr, &names), "E_INVALIDARG");
    ASSERT_EQ(names.GetSize(), 3); // what was there stays
    EXPECT_EQ(names[0], "W1");
    EXPECT_EQ(names[2], "TAB[1]");
}

TEST(BrowseArguments, OfAPropertyListing)
{
    CLoadedExport plant(kPlant);
    void* noArray = nullptr;
    DWORD held = 0; // elements of that array
    const std::function<void(CHostListing&)> changes[] = {
        [](CHostListing& call) { call.passed.more = nullptr; },
        [](CHostListing& call) { call.passed.count = nullptr; },
        [](CHostListing& call) { call.passed.array = nullptr; },
        [](CHostListing& call) { call.passed.capacity = nullptr; },
        [&](CHostListing& call) { call.passed.array = &noArray, call.passed.count = &held; },
    };
    for (DWORD limit : {0U, 2U}) {
        held = limit == 0 ? 1 : 0; // there is no room for either
        for (const auto& change : changes) {
            CHostListing call(limit);
            change(call);
            EXPECT_EQ(ResultName(call.Run(plant.table)), "E_INVALIDARG") << &change - changes << " limit " << limit;
            EXPECT_EQ(call.count, 0U);
            EXPECT_EQ(call.more, 7U);
            EXPECT_EQ(call.point, nullptr);
            EXPECT_EQ(call.capacity, limit);
        }
    }
    EXPECT_EQ(plant.Elements({.path = "NOTHING"}), "E_INVALIDARG");
    EXPECT_EQ(plant.Elements({.path = nullptr, .pattern = nullptr, .filter = nullptr}),
              "W1, MOTOR1 >, PID1 >, TAB >"); // absent texts are empty ones

    CHostListing call;
    EXPECT_EQ(plant.table->BrowseSymbolsWithProperties(
                  "", "*", 0, "", 0, 0, FALSE, TRUE, TRUE, 1, nullptr, nullptr, call.passed.point, 0, 0, 0, 0, 0,
                  call.passed.more, call.passed.count, call.passed.array, call.passed.capacity, nullptr),
              E_INVALIDARG);
    EXPECT_EQ(call.count, 0U);
}

TEST(BrowseArguments, PathsThatLeadNowhere)
{
    CLoadedExport plant(kPlant);
    std::string seventeenSteps = "MOTOR1";
    for (int i = 0; i < 16; ++i)
        seventeenSteps += ".A";
    // Elementary values, unknown names, indexes of no array or outside it, and what is no path; blanks count.
    const std::string paths[] = {"NOTHING",     "W1",        "W1.5",   "MOTOR1.SPEED", "PID1.SP", "TAB[0]",
                                 "MOTOR1.GONE", "MOTOR1[0]", "TAB[2]", "TAB.X.Y",      "TAB[a]",  " MOTOR1",
                                 ".",           "..MOTOR1",  "[0]",    seventeenSteps};
    for (const std::string& path : paths) {
        EXPECT_EQ(plant.table.Browse({.path = path.c_str()}), "E_INVALIDARG") << path;
        EXPECT_EQ(plant.Elements({.path = path.c_str()}), "E_INVALIDARG") << path;
    }
    EXPECT_EQ(plant.table.Browse({.path = ".motor1"}), "SPEED");
}

} // namespace
