// The variables of a project, as both browse operations list them.
#include "browse/BrowseFixture.h"

namespace {

const char kPlant[] = "TYPE Motor STRUCT SPEED INT @0 size 2 END\n"
                      "VAR Zulu   INT   AT %MW10 block 5 @20 size 2 'first of the export'\n"
                      "VAR MOTOR1 Motor AT %MW100 block 5 @200 size 2 'pump | fan'\n"
                      "VAR ORIGIN    INT   block 0 @0 size 2 'where all areas begin'\n"
                      "VAR ORIGINBIT WORD  block 0 @0 size 2 bit 3\n";

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
