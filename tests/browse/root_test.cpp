// The variables of a project, as both browse operations list them.
#include "browse/BrowseFixture.h"

namespace {

const char kPlant[] = "TYPE Motor STRUCT SPEED INT @0 size 2 END\n"
                      "DFB Pid IN SP INT @0 size 2 END\n"
                      "VAR Zulu   INT   AT %MW10 block 5 @20 size 2 'first of the export'\n"
                      "VAR MOTOR1 Motor AT %MW100 block 5 @200 size 2 'pump | fan'\n"
                      "VAR B1     BOOL  AT %M1 size 1\n"
                      "VAR E1     EBOOL AT %I0.1 size 1\n"
                      "VAR U1     UINT  AT %MW11 size 2\n"
                      "VAR W1     WORD  AT %MW12 size 2\n"
                      "VAR R1     REAL  AT %MF13 size 4\n"
                      "VAR BY1    BYTE  AT %MB14 size 1\n"
                      "VAR NOWHERE   INT   block 5 @40 size 2\n"
                      "VAR ORIGIN    INT   block 0 @0 size 2 'where all areas begin'\n"
                      "VAR ORIGINBIT WORD  block 0 @0 size 2 bit 3\n"
                      "VAR ORIGIN4   DINT  block 0 @0 size 4\n"
                      "VAR SYMBOLIC  INT   AT somewhere size 2\n"
                      "VAR PID1   Pid   AT %MW300 size 2\n"
                      "VAR TAB    ARRAY[0..2] OF INT AT %MW400 block 5 @800 size 6\n"
                      "VAR MOTOR2 Motor block 5 @600 size 2\n"
                      "VAR Motor3 Motor AT %MW700 size 2\n";

const char kEverything[] = "Zulu, MOTOR1 >, B1, E1, U1, W1, R1, BY1, NOWHERE, ORIGIN, ORIGINBIT, ORIGIN4, SYMBOLIC, "
                           "PID1 >, TAB >, MOTOR2 >, Motor3 >";
const char kValues[] = "Zulu, B1, E1, U1, W1, R1, BY1, NOWHERE, ORIGIN, ORIGINBIT, ORIGIN4, SYMBOLIC";
const char kBranches[] = "MOTOR1 >, PID1 >, TAB >, MOTOR2 >, Motor3 >";
const char kServed[] = "Zulu, B1, E1, U1, W1, ORIGIN, ORIGINBIT, SYMBOLIC"; // with an address, by a plain name

struct RootCase
{
    HostBrowse request;
    const char* texts;
    const char* elements;
};

const RootCase kRoots[] = {
    {{}, kServed, kEverything},
    {{.branches = FALSE}, kServed, kValues},
    {{.leaves = FALSE}, "", kBranches},
    {{.leaves = FALSE, .branches = FALSE}, "", ""},
    {{.branchesOnly = TRUE}, "MOTOR1, PID1, TAB, Motor3", kBranches},
    {{.branchesOnly = TRUE, .leaves = FALSE, .branches = FALSE}, "MOTOR1, PID1, TAB, Motor3", kBranches},
    // The variant type counts for branches too.
    {{.varType = 2}, "Zulu, ORIGIN, SYMBOLIC", "Zulu, NOWHERE, ORIGIN, SYMBOLIC"},
    {{.varType = 4}, "", "R1"},
    {{.varType = 0x2002}, "", "TAB >"},
    {{.varType = 0x2002, .branchesOnly = TRUE}, "TAB", "TAB >"},
    {{.varType = 0x2011, .branchesOnly = TRUE}, "MOTOR1, PID1, Motor3", "MOTOR1 >, PID1 >, MOTOR2 >, Motor3 >"},
    // Texts: no "%" in the address; elements: no address at all.
    {{.filter = "%UL"}, "ORIGIN, ORIGINBIT, SYMBOLIC", "NOWHERE, ORIGIN, ORIGINBIT, ORIGIN4, MOTOR2 >"},
    {{.filter = "x%ULx", .branchesOnly = TRUE}, "", "MOTOR2 >"},
    {{.filter = "%ul"}, kServed, kEverything},
    {{.pattern = "MOT*"}, "", "MOTOR1 >, MOTOR2 >"},
    {{.pattern = "MOT", .branchesOnly = TRUE}, "MOTOR1", "MOTOR1 >, MOTOR2 >"},
    {{.pattern = "O*I*N"}, "ORIGIN, ORIGINBIT", "ORIGIN, ORIGINBIT, ORIGIN4"},
    {{.pattern = ""}, kServed, kEverything},
    {{.pattern = "*X"}, kServed, kEverything},
    {{.pattern = "z"}, "", ""},
    {{.pattern = "Zulu1"}, "", ""},
    {{.pattern = "OR", .filter = "%UL"}, "ORIGIN, ORIGINBIT", "ORIGIN, ORIGINBIT, ORIGIN4"},
};

TEST(BrowseRoot, SelectsVariables)
{
    CLoadedExport plant(kPlant);
    for (const RootCase& row : kRoots) {
        SCOPED_TRACE(&row - kRoots);
        EXPECT_EQ(plant.table.Browse(row.request), row.texts);
        EXPECT_EQ(plant.Elements(row.request), row.elements);
    }
}

TEST(BrowseRoot, AddsAFieldForEachCode)
{
    CLoadedExport plant(kPlant);
    EXPECT_EQ(plant.table.Browse({.pattern = "Zulu", .fields = "AC"}), "Zulu|%MW10|first of the export");
    EXPECT_EQ(plant.table.Browse({.pattern = "Zulu", .fields = "CxAa"}), "Zulu|first of the export||%MW10|");
    EXPECT_EQ(plant.table.Browse({.pattern = "OR", .fields = "AC"}),
              "ORIGIN|%MW0|where all areas begin, ORIGINBIT|%MW0.3|");
    EXPECT_EQ(plant.table.Browse({.pattern = "MOTOR1", .branchesOnly = TRUE, .fields = "AC"}),
              "MOTOR1|%MW100|pump | fan");
    EXPECT_EQ(plant.Elements({.pattern = "Zulu", .fields = "AC"}), "Zulu"); // elements of the root have none
}

TEST(BrowseRoot, KeepsTheOrderOfTheExport)
{
    std::string text, expected;
    for (int i = 0; i < 300; ++i) {
        const std::string name = "V" + std::to_string(i * 7919 % 300);
        text += "VAR " + name + " INT AT %MW1 size 2\n";
        expected += (i ? ", " : "") + (name == "V5" ? std::string("v5") : name);
    }
    CLoadedExport plant(text + "VAR v5 INT AT %MW1 size 2\n"); // takes the place of V5
    EXPECT_EQ(plant.table.Browse(), expected);
    EXPECT_EQ(plant.Elements({}), expected);
}

TEST(BrowseRoot, OfNothingIsEmpty)
{
    CHostTable table;
    EXPECT_EQ(table.Browse(), "");
    EXPECT_EQ(table.Browse({.path = "A"}), "E_INVALIDARG");
    CPropertyCall call;
    EXPECT_EQ(call.Run(table), 0);
    EXPECT_EQ(call.out.count, 0U);
}

} // namespace
