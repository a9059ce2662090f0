// The records of a property browse and the host's variables around them.
#include "browse/BrowseFixture.h"
#include "platform/com/TaskMemory.h"

#include <algorithm>
#include <utility>

namespace {

const char kPlant[] =
    "TYPE Motor STRUCT SPEED INT @0 size 2 MOTOR INT @2 size 2 MOTOR_SPEED INT @4 size 2\n"
    "  GRID ARRAY[1..2,0..1] OF INT @6 size 8 \"Drehmoment \xC3\xA4\" ARRAY[0..0] OF INT @14 size 2 END\n"
    "VAR VAR1  INT   AT %MW10 block 5 @20 size 2\n"
    "VAR TAB   ARRAY[0..3] OF INT AT %MW20 block 5 @40 size 8\n"
    "VAR MOTOR Motor AT %MW100 block 5 @200 size 16\n"
    "VAR \"F\xC3\xBCllstand\xF0\x9F\x92\xA7\" INT AT %MW11 size 2\n";

TEST(BrowseElements, TooLongAParentIsCutBetweenCharacters)
{
    CLoadedExport plant(kPlant);
    std::u16string parent(1022, u'P');
    parent += u"\u00C4\u00C4";
    EXPECT_EQ(plant.table.BrowsePage({.pattern = "VAR", .parentId = parent.c_str()}, 0).elements.at(0).itemId,
              std::string(1022, 'P') + "!VAR1");
}

TEST(BrowseElements, AreAddedBehindThoseThatAreThere)
{
    CLoadedExport plant(kPlant);
    CHostListing call;
    // Room is made for every candidate, wanted or not, and 1000 more.
    EXPECT_EQ(call.Run(plant.table, {.pattern = "VAR"}), 0);
    EXPECT_EQ(call.capacity, 4U + 1000);
    void* first = call.array;
    EXPECT_EQ(call.Run(plant.table, {.path = "TAB"}), 0);
    EXPECT_EQ(call.Names(), "VAR1, TAB[0], TAB[1], TAB[2], TAB[3]");
    EXPECT_EQ(call.array, first);
    EXPECT_EQ(call.capacity, 1004U);
    call.capacity = 9; // just enough
    EXPECT_EQ(call.Run(plant.table, {.path = "TAB"}), 0);
    EXPECT_EQ(call.capacity, 9U);
    EXPECT_EQ(call.Run(plant.table, {.path = "TAB"}), 0); // one too few
    EXPECT_EQ(call.capacity, 13U + 1000);
    EXPECT_EQ(call.count, 13U);
    EXPECT_EQ(call.Read(12).name, "TAB[3]");
    EXPECT_EQ(call.Run(plant.table, {.path = "TAB", .pattern = "nothing"}), 0);
    EXPECT_EQ(call.count, 13U);
    EXPECT_EQ(call.more, 7U); // left alone by a listing that was not cut
    EXPECT_EQ(call.point, nullptr);
}

TEST(BrowseElements, RoomIsNotTakenForGranted)
{
    CLoadedExport plant(kPlant);
    CHostListing call;
    call.capacity = 5000; // of no array
    EXPECT_EQ(call.Run(plant.table), 0);
    EXPECT_EQ(call.count, 4U);
    EXPECT_EQ(call.capacity, 1004U);
    for (DWORD count : {0xFFFFFFFFU, 0xFFFFFFFFU - 1003}) { // more than can be counted
        call.count = count;
        EXPECT_EQ(ResultName(call.Run(plant.table)), "E_OUTOFMEMORY");
        EXPECT_EQ(call.count, count);
        EXPECT_EQ(call.capacity, 1004U);
    }
    call.count = 4;
}

TEST(BrowseElements, ALimitCountsThoseThatAreThere)
{
    CLoadedExport plant(kPlant);
    CHostListing call(6);
    void* array = call.array;
    EXPECT_EQ(call.Run(plant.table, {.path = "TAB"}), 0);
    EXPECT_EQ(call.more, 7U);
    EXPECT_EQ(call.Run(plant.table), 0); // two of four fit
    EXPECT_EQ(call.Names(), "TAB[0], TAB[1], TAB[2], TAB[3], VAR1, TAB");
    EXPECT_EQ(call.more, 1U);
    EXPECT_EQ(Narrow(call.point), "MOTOR");
    EXPECT_EQ(call.array, array);
    EXPECT_EQ(call.capacity, 6U);

    // A point given back stays the host's; the next one is another text. Here nothing fits.
    LPWSTR given = call.point;
    EXPECT_EQ(call.Run(plant.table), 0);
    EXPECT_EQ(Narrow(call.point), "MOTOR");
    EXPECT_NE(call.point, given);
    CoTaskMemFree(given);

    for (DWORD smaller : {1U, 5U}) { // than the elements that are there
        for (const char* path : {"", "TAB", "MOTOR"}) {
            CoTaskMemFree(std::exchange(call.point, nullptr));
            call.more = 7;
            call.limit = smaller;
            EXPECT_EQ(call.Run(plant.table, {.path = path}), 0);
            EXPECT_EQ(call.count, smaller) << path;
            EXPECT_EQ(call.more, 1U) << path;
            EXPECT_EQ(Narrow(call.point), *path == 0 ? "VAR1" : *path == 'T' ? "TAB[0]" : "SPEED");
            call.count = 6; // all of them are still the host's
        }
    }
    CoTaskMemFree(std::exchange(call.point, nullptr));
    call.limit = 1;
    EXPECT_EQ(call.Run(plant.table, {.path = "TAB", .pattern = "nothing"}), 0);
    EXPECT_EQ(call.count, 6U); // nothing to add, nothing to cut
}

// A limit of everything that can be counted, and no place for a continuation point.
TEST(BrowseElements, UnusualLimits)
{
    CLoadedExport plant(kPlant);
    for (const char* path : {"", "TAB", "MOTOR"}) {
        for (DWORD limit : {2U, 5U, 0xFFFFFFFFU}) {
            CHostListing call(std::min(limit, DWORD{5})); // room enough for each
            call.limit = limit;
            call.passed.point = nullptr;
            EXPECT_EQ(call.Run(plant.table, {.path = path}), 0);
            EXPECT_EQ(call.count, limit == 2 ? 2U : *path == 'M' ? 5U : 4U) << path;
            EXPECT_EQ(call.more, limit == 2 ? 1U : 7U) << path;
        }
    }
}

struct ResumeCase
{
    HostBrowse request;
    const char* point;
    const char* names;
};

const ResumeCase kResumes[] = {
    {{}, "TAB", "TAB >, MOTOR >, F\xC3\xBCllstand\xF0\x9F\x92\xA7"},
    {{}, "tab", ""},
    {{.pattern = "M"}, "VAR1", ""},                     // no entry of this listing
    {{.varType = 2}, "TAB", ""},                        //
    {{.filter = "%UL"}, "VAR1", ""},                    //
    {{.branchesOnly = TRUE}, "VAR1", "TAB >, MOTOR >"}, // the kind is looked at from there on
    {{.path = "TAB"}, "TAB[0]", "TAB[0], TAB[1], TAB[2], TAB[3]"},
    {{.path = "TAB"}, "TAB[02]", ""},
    {{.path = "TAB"}, "TAB[ 2]", ""},
    {{.path = "TAB"}, "TAB(2]", ""},
    {{.path = "TAB"}, "TAB[4]", ""},
    {{.path = "TAB"}, "TAB[-1]", ""},
    {{.path = "TAB"}, "TAB[99999999999]", ""},
    {{.path = "TAB"}, "tab[2]", ""},
    {{.path = "TAB", .pattern = "TAB[3"}, "TAB[2]", ""},
    {{.path = "TAB", .leaves = FALSE}, "TAB[2]", ""},
    {{.path = "MOTOR", .branches = FALSE}, "GRID", ""},
};

TEST(BrowseElements, ResumeOnlyAtAnEntryOfTheListing)
{
    CLoadedExport plant(kPlant);
    for (const ResumeCase& row : kResumes) {
        for (DWORD limit : {0U, 5U})
            EXPECT_EQ(CLoadedExport::Names(plant.table.BrowsePage(row.request, limit, row.point)), row.names)
                << row.request.path << " at " << row.point << ", limit " << limit;
    }
    WCHAR empty = 0; // stands for the first entry
    for (DWORD limit : {0U, 4U}) {
        CHostListing call(limit);
        call.point = &empty;
        EXPECT_EQ(call.Run(plant.table, {.path = "TAB"}), 0);
        EXPECT_EQ(call.count, 4U);
        EXPECT_EQ(call.point, &empty);
    }
}

} // namespace
