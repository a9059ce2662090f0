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

struct MembersCase
{
    HostBrowse request; // the path is added
    const char* ofStructure;
    const char* ofFunctionBlock;
};

const char kAllMembers[] = "SPEED, STATE, POS >, LIMITS >, ODD >, LATE >";
const char kMemberBranches[] = "POS >, LIMITS >, LATE >";

const MembersCase kMembers[] = {
    {{}, kAllMembers, kAllMembers},
    {{.leaves = FALSE, .branches = FALSE}, kAllMembers, kAllMembers},
    {{.branches = FALSE}, "SPEED, STATE", "SPEED, STATE"},
    {{.leaves = FALSE}, kMemberBranches, kMemberBranches},
    {{.branchesOnly = TRUE}, kMemberBranches, kMemberBranches},
    {{.branchesOnly = TRUE, .branches = FALSE}, kMemberBranches, kMemberBranches},
    {{.varType = 2, .branches = FALSE}, "SPEED", "SPEED"},
    {{.varType = 2, .leaves = FALSE}, kMemberBranches, kMemberBranches},
    {{.varType = 2, .branchesOnly = TRUE}, kMemberBranches, kMemberBranches},
    // Both kinds together: only structures look at the variant type, and classify what was unknown at the import.
    {{.varType = 2}, "SPEED", kAllMembers},
    {{.varType = 0x2012}, "LIMITS >, LATE >", kAllMembers},
    {{.varType = 0x2012, .leaves = FALSE, .branches = FALSE}, "LIMITS >, LATE >", kAllMembers},
    {{.pattern = "S*"}, "SPEED, STATE", "SPEED, STATE"},
    {{.pattern = "P"}, "POS >", "POS >"},
    {{.pattern = "s"}, "", ""},
    {{.pattern = "M."}, "", ""}, // the bare name counts
    {{.filter = "%UL"}, "", ""}, // the variable has an address
};

TEST(BrowseChildren, SelectsMembers)
{
    CLoadedExport plant(kPlant);
    for (const MembersCase& row : kMembers) {
        SCOPED_TRACE(&row - kMembers);
        for (const char* path : {"M", "P"}) {
            HostBrowse request = row.request;
            request.path = path;
            const std::string expected = *path == 'M' ? row.ofStructure : row.ofFunctionBlock;
            EXPECT_EQ(plant.Elements(request), expected);
            std::string names = expected;
            for (std::size_t at; (at = names.find(" >")) != std::string::npos;)
                names.erase(at, 2);
            EXPECT_EQ(plant.table.Browse(request), names);
        }
    }
    EXPECT_EQ(plant.table.Browse({.path = "M0", .filter = "%UL"}), "SPEED, STATE, POS, LIMITS, ODD, LATE");
}

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

TEST(BrowseChildren, BlocksAddUpBeyond16BitsInTheText)
{
    CLoadedExport plant("TYPE S STRUCT A INT block 1 @0 size 2 END DFB D IN A INT block 1 @2 size 2 END\n"
                        "VAR S1 S block 65535 @0 size 2 VAR D1 D block 65535 @4294967295 size 2\n"
                        "VAR S2 S block 65535 @2147483647 size 2\n");
    EXPECT_EQ(plant.table.Browse({.path = "S1", .fields = "A"}), "A|U-INT (B:65536 - O:0) %MW0");
    EXPECT_EQ(plant.table.Browse({.path = "D1", .fields = "A"}), "A|U-INT (B:65536 - O:2147483649) "); // it saturates
    EXPECT_EQ(plant.table.Browse({.path = "S2", .fields = "A"}), "A|U-INT (B:65536 - O:2147483647) ");
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

TEST(BrowseChildren, OfAFunctionBlockLeaveOutInnerBlocksButTheFirst)
{
    CLoadedExport plant("DFB In IN A INT @0 size 2 DFB Out IN ONE In @0 size 2 B INT @2 size 2 TWO In @4 size 2\n"
                        "VAR O Out AT %MW1 size 6\n");
    EXPECT_EQ(plant.Elements({.path = "O"}), "ONE >, B");
    EXPECT_EQ(plant.Elements({.path = "O.ONE"}), "A");
    EXPECT_EQ(plant.Elements({.path = "O.TWO"}), "E_INVALIDARG");
}

const char kArrays[] =
    "TYPE Point STRUCT X INT @0 size 2 Y INT @2 size 2 END\n"
    "TYPE Unit STRUCT GRID ARRAY[1..2,0..2] OF INT @4 size 12 PTS ARRAY[0..1] OF point @16 size 8 END\n"
    "TYPE Row ARRAY[0..1] OF Point\n"
    "VAR TAB ARRAY[-1..1] OF int AT %MW10 block 5 @20 size 7\n"
    "VAR ONE ARRAY[3..3] OF DINT block 0 @0 size 4\n"
    "VAR BITS ARRAY[0..1] OF BOOL block 0 @0 size 2\n"
    "VAR ROWS ARRAY[0..1] OF Row AT %MW50 block 5 @100 size 16\n"
    "VAR NEST ARRAY[0..1] OF ARRAY[2..3] OF INT AT %MW70 block 5 @140 size 8\n"
    "VAR ODDS ARRAY[0..1] OF Nowhere AT %MW80 size 4\n"
    "VAR CUBE ARRAY[0..1,5..6,-2..-1] OF INT AT %MW90 block 5 @180 size 16\n"
    "VAR UNIT Unit AT %MW100 block 5 @200 size 24\n"
    "VAR NONE ARRAYX AT %MW120 size 2\n";

struct ElementsCase
{
    HostBrowse request;
    const char* elements; // as elements, and as texts without the marks
};

const ElementsCase kElements[] = {
    {{.path = "TAB"}, "TAB[-1], TAB[0], TAB[1]"},
    {{.path = "TAB", .branches = FALSE}, "TAB[-1], TAB[0], TAB[1]"},
    {{.path = "TAB", .leaves = FALSE}, ""},
    {{.path = "TAB", .branchesOnly = TRUE, .leaves = FALSE}, ""},
    {{.path = "TAB", .branchesOnly = TRUE}, "TAB[-1], TAB[0], TAB[1]"}, // the first condition that holds
    {{.path = "TAB", .leaves = FALSE, .branches = FALSE}, ""},
    {{.path = "TAB", .varType = 2}, "TAB[-1], TAB[0], TAB[1]"},
    {{.path = "TAB", .varType = 0x2002}, ""}, // the element's own variant type counts
    {{.path = "tab"}, "tab[-1], tab[0], tab[1]"},
    {{.path = "TAB", .pattern = "TAB[1"}, "TAB[1]"},
    {{.path = "TAB", .pattern = "TAB[*]"}, "TAB[-1], TAB[0], TAB[1]"},
    {{.path = "TAB", .pattern = "[1"}, ""},
    {{.path = "TAB", .filter = "%UL"}, ""},
    {{.path = "ONE", .filter = "%UL"}, "ONE[3]"},
    {{.path = "ROWS"}, "ROWS[0] >, ROWS[1] >"},
    {{.path = "ROWS", .branches = FALSE}, ""},
    {{.path = "ROWS", .varType = 2, .leaves = FALSE}, "ROWS[0] >, ROWS[1] >"},
    {{.path = "ROWS", .branchesOnly = TRUE, .leaves = FALSE, .branches = FALSE}, "ROWS[0] >, ROWS[1] >"},
    {{.path = "ROWS[1]"}, "ROWS[1][0] >, ROWS[1][1] >"},
    {{.path = "ROWS[1][0]"}, "X, Y"},
    {{.path = "ROWS.ANY"}, "ANY[0] >, ANY[1] >"}, // a name stands for the first element
    // Elements of an unknown type are listed with the leaves and are none.
    {{.path = "ODDS"}, "ODDS[0] >, ODDS[1] >"},
    {{.path = "ODDS", .leaves = FALSE}, ""},
    {{.path = "ODDS", .branchesOnly = TRUE, .leaves = FALSE}, ""},
    {{.path = "ODDS", .varType = 2}, ""},
    {{.path = "NEST[1]"}, "NEST[1][2], NEST[1][3]"},
    {{.path = "CUBE"}, "CUBE[0] >, CUBE[1] >"},
    {{.path = "CUBE[1]"}, "CUBE[1][5] >, CUBE[1][6] >"},
    {{.path = "CUBE[1][5]"}, "CUBE[1][5][-2], CUBE[1][5][-1]"},
    {{.path = "UNIT.GRID"}, "GRID[1] >, GRID[2] >"},
    {{.path = "unit.Grid[2]"}, "Grid[2][0], Grid[2][1], Grid[2][2]"},
    {{.path = "UNIT.PTS[1]"}, "X, Y"},
    {{.path = "CUBE[1,9]"}, "CUBE[1,9][5] >, CUBE[1,9][6] >"}, // the first number counts
    {{.path = "NONE"}, "NONE[0] >"},
};

TEST(BrowseChildren, SelectsElements)
{
    CLoadedExport plant(kArrays);
    for (const ElementsCase& row : kElements) {
        SCOPED_TRACE(&row - kElements);
        EXPECT_EQ(plant.Elements(row.request), row.elements);
        std::string names = row.elements;
        for (std::size_t at; (at = names.find(" >")) != std::string::npos;)
            names.erase(at, 2);
        EXPECT_EQ(plant.table.Browse(row.request), names);
    }
}

TEST(BrowseChildren, AddsTheFieldsOfElements)
{
    CLoadedExport plant(kArrays);
    const auto fields = [&](const char* path) { return plant.table.Browse({.path = path, .fields = "CA"}); };
    EXPECT_EQ(fields("TAB"), "TAB[-1]||U-INT (B:5 - O:20) , TAB[0]||U-INT (B:5 - O:22) , TAB[1]||U-INT (B:5 - O:24) ");
    EXPECT_EQ(fields("ONE"), "ONE[3]||U-DINT (B:0 - O:0) %MD0");
    EXPECT_EQ(fields("BITS"), "BITS[0]||U-BOOL (B:0 - O:0) %MW0.0, BITS[1]||U-BOOL (B:0 - O:1) ");
    EXPECT_EQ(fields("ROWS"), "ROWS[0]||U-Row (B:5 - O:100) , ROWS[1]||U-Row (B:5 - O:108) ");
    EXPECT_EQ(fields("ROWS[1]"), "ROWS[1][0]||U-Point (B:5 - O:108) , ROWS[1][1]||U-Point (B:5 - O:112) ");
    EXPECT_EQ(fields("ROWS[1][1]"), "X||U-INT (B:5 - O:112) , Y||U-INT (B:5 - O:114) ");
    EXPECT_EQ(fields("NEST"), "NEST[0]||U-ARRAY[2..3] OF INT (B:5 - O:140) , NEST[1]||U-ARRAY[2..3] OF INT (B:5 - "
                              "O:144) ");
    EXPECT_EQ(fields("ODDS"), "ODDS[0]||U-NOWHERE (B:0 - O:0) %MW0, ODDS[1]||U-NOWHERE (B:0 - O:2) ");
    // Inner parts of an array show the declaration that they stand for.
    EXPECT_EQ(fields("UNIT.GRID"), "GRID[1]||U-ARRAY[0..2] OF INT (B:5 - O:204) , GRID[2]||U-ARRAY[0..2] OF INT (B:5 "
                                   "- O:210) ");
    EXPECT_EQ(fields("CUBE"), "CUBE[0]||U-ARRAY[5..6,-2..-1] OF INT (B:5 - O:180) , CUBE[1]||U-ARRAY[5..6,-2..-1] OF "
                              "INT (B:5 - O:188) ");
    EXPECT_EQ(fields("CUBE[1][6]"), "CUBE[1][6][-2]||U-INT (B:5 - O:192) , CUBE[1][6][-1]||U-INT (B:5 - O:194) ");
    EXPECT_EQ(fields("UNIT.PTS"), "PTS[0]||U-Point (B:5 - O:216) , PTS[1]||U-Point (B:5 - O:220) ");
}

} // namespace
