// Members of structures and function blocks, elements of arrays.
#include "browse/BrowseFixture.h"

namespace {

// Later is not known yet when the types that use it are read.
const char kPlant[] =
    "TYPE Point STRUCT X INT @0 size 2 'east' Y Real @2 size 4 END\n"
    "TYPE Motor STRUCT SPEED Int @0 size 2 'rpm' STATE Bool block 1 @2 size 1 SECRET INT @3 hidden 1\n"
    "  POS Point @4 size 6 'where' LIMITS ARRAY[0..1] OF INT @10 size 4 ODD Nowhere @14 size 2\n"
    "  LATE Later @16 size 4 END\n"
    "DFB Pid IN SPEED Int @0 size 2 'rpm' STATE Bool block 1 @2 size 1 SECRET INT @3 hidden 1\n"
    "  INOUT POS Point @4 size 6 'where' OUT LIMITS ARRAY[0..1] OF INT @10 size 4\n"
    "  PRIVATE ODD Nowhere @14 size 2 PUBLIC LATE Later @16 size 4 END\n"
    "TYPE Later ARRAY[0..1] OF INT\n"
    "VAR M Motor AT %MW100 block 5 @200 size 20\n"
    "VAR P Pid   AT %MW200 block 5 @400 size 20\n"
    "VAR M0 Motor block 0 @0 size 20\n"
    "VAR P0 Pid   block 0 @0 size 20\n";

// Type names are shown as they were before this listing; each listing leaves them in upper case.
TEST(BrowseChildren, AddsTheFieldsOfMembers)
{
    CLoadedExport plant(kPlant);
    const HostBrowse structure{.path = "M", .fields = "AxC"};
    EXPECT_EQ(plant.table.Browse(structure),
              "SPEED|U-Int (B:5 - O:200) ||rpm, STATE|U-Bool (B:6 - O:202) ||, POS|U-Point (B:5 - O:204) ||where, "
              "LIMITS|U-ARRAY[0..1] OF INT (B:5 - O:210) ||, ODD|U-Nowhere (B:5 - O:214) ||, "
              "LATE|U-Later (B:5 - O:216) ||");
    EXPECT_EQ(plant.table.Browse(structure),
              "SPEED|U-INT (B:5 - O:200) ||rpm, STATE|U-BOOL (B:6 - O:202) ||, POS|U-POINT (B:5 - O:204) ||where, "
              "LIMITS|U-ARRAY[0..1] OF INT (B:5 - O:210) ||, ODD|U-NOWHERE (B:5 - O:214) ||, "
              "LATE|U-LATER (B:5 - O:216) ||");
    // Of a function block the import looked at every parameter but the first.
    EXPECT_EQ(plant.table.Browse({.path = "P", .fields = "AC"}),
              "SPEED|U-Int (B:5 - O:400) |rpm, STATE|U-BOOL (B:6 - O:402) |, POS|U-POINT (B:5 - O:404) |where, "
              "LIMITS|U-ARRAY[0..1] OF INT (B:5 - O:410) |, ODD|U-NOWHERE (B:5 - O:414) |, "
              "LATE|U-LATER (B:5 - O:416) |");
    EXPECT_EQ(plant.Elements({.path = "P", .pattern = "SPEED", .fields = "AC"}), "SPEED|U-INT (B:5 - O:400) |rpm");
    // Where the word area begins there is an address: behind the place in a structure, instead of it in a block.
    EXPECT_EQ(plant.table.Browse({.path = "M0", .pattern = "SPEED", .fields = "A"}), "SPEED|U-INT (B:0 - O:0) %MW0");
    EXPECT_EQ(plant.table.Browse({.path = "P0", .pattern = "S", .fields = "A"}),
              "SPEED|%MW0, STATE|U-BOOL (B:1 - O:2) ");
}

TEST(BrowseChildren, OffsetsAddUpBeyond31Bits)
{
    CLoadedExport plant("DFB D IN A INT block 1 @2 size 2 END VAR D1 D block 65535 @4294967295 size 2\n");
    EXPECT_EQ(plant.table.Browse({.path = "D1", .fields = "A"}), "A|U-INT (B:65536 - O:2147483649) "); // it saturates
}

TEST(BrowseChildren, OfAStructureAreClassifiedAnewWhenTheyMatch)
{
    CLoadedExport plant(kPlant);
    EXPECT_EQ(plant.table.Lookup("M.LATE"), "LATER as structured +216 size 4 block 5");
    EXPECT_EQ(plant.table.Browse({.path = "M", .pattern = "S"}), "SPEED, STATE"); // LATE does not match
    EXPECT_EQ(plant.table.Lookup("M.LATE"), "LATER as structured +216 size 4 block 5");
    plant.table.Browse({.path = "M"});
    EXPECT_EQ(plant.table.Lookup("M.LATE"), "LATER as INT[] +216 size 4 block 5");
}

const char kArrays[] = "TYPE Point STRUCT X INT @0 size 2 Y INT @2 size 2 END\n"
                       "TYPE Row ARRAY[0..1] OF Point\n"
                       "VAR TAB ARRAY[-1..1] OF int AT %MW10 block 5 @20 size 7\n"
                       "VAR BITS ARRAY[0..1] OF BOOL block 0 @0 size 2\n"
                       "VAR ROWS ARRAY[0..1] OF Row AT %MW50 block 5 @100 size 16\n"
                       "VAR ODDS ARRAY[0..1] OF Nowhere AT %MW80 size 4\n"
                       "VAR CUBE ARRAY[0..1,5..6,-2..-1] OF int AT %MW90 block 5 @180 size 16\n"
                       "VAR NONE ARRAYX AT %MW120 size 2\n";

TEST(BrowseChildren, OfUnusualArrayPaths)
{
    CLoadedExport plant(kArrays);
    EXPECT_EQ(plant.Elements({.path = "ROWS.ANY"}), "ANY[0] >, ANY[1] >"); // a name stands for the first element
    EXPECT_EQ(plant.Elements({.path = "CUBE[1,9]"}), "CUBE[1,9][5] >, CUBE[1,9][6] >"); // the first number counts
    EXPECT_EQ(plant.Elements({.path = "NONE"}), "NONE[0] >");
}

TEST(BrowseChildren, AddsTheFieldsOfElements)
{
    CLoadedExport plant(kArrays);
    const auto fields = [&](const char* path) { return plant.table.Browse({.path = path, .fields = "CA"}); };
    EXPECT_EQ(fields("TAB"), "TAB[-1]||U-INT (B:5 - O:20) , TAB[0]||U-INT (B:5 - O:22) , TAB[1]||U-INT (B:5 - O:24) ");
    EXPECT_EQ(fields("BITS"), "BITS[0]||U-BOOL (B:0 - O:0) %MW0.0, BITS[1]||U-BOOL (B:0 - O:1) ");
    EXPECT_EQ(fields("ROWS[1]"), "ROWS[1][0]||U-Point (B:5 - O:108) , ROWS[1][1]||U-Point (B:5 - O:112) ");
    EXPECT_EQ(fields("ODDS"), "ODDS[0]||U-NOWHERE (B:0 - O:0) %MW0, ODDS[1]||U-NOWHERE (B:0 - O:2) ");
    // Inner parts of an array show the declaration that they stand for.
    EXPECT_EQ(fields("CUBE"), "CUBE[0]||U-ARRAY[5..6,-2..-1] OF INT (B:5 - O:180) , CUBE[1]||U-ARRAY[5..6,-2..-1] OF "
                              "INT (B:5 - O:188) ");
}

} // namespace
