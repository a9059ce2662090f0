// An item identifier without the host's part up to "!" is a name that the lookup knows.
#include "browse/BrowseFixture.h"

#include <algorithm>

namespace {

const char kPlant[] =
    "TYPE Point STRUCT X INT @0 size 2 'east' Y REAL @2 size 4 END\n"
    "TYPE Motor STRUCT SPEED WORD @0 size 2 MOTOR_POS Point @2 size 6 LIMITS ARRAY[-1..0] OF INT @8 size 4\n"
    "  SECRET INT @12 size 2 hidden 1 END\n"
    "DFB Pid IN SP INT @0 size 2 P Point @2 size 6 END\n"
    "VAR W1    WORD  AT %MW10 block 5 @20 size 2\n"
    "VAR R1    REAL  AT %MF11 block 5 @22 size 4\n"
    "VAR U1    INT   block 7 @0 size 2\n"
    "VAR MOTOR Motor AT %MW100 block 5 @200 size 14\n"
    "VAR PID1  Pid   AT %MW200 block 5 @400 size 8\n"
    "VAR GRID  ARRAY[1..2,0..1] OF INT AT %MW300 block 5 @600 size 8\n"
    "VAR PTS   ARRAY[3..4] OF Point AT %MW400 block 5 @800 size 12\n";

// Whole values and what a plain name does not serve are refused; what lies below a function
// block's parameter is reached by a relative offset.
const char* const kLookups[] = {
    "W1: WORD +20 size 2 block 5 at %MW10",
    "R1: refused, silent",
    "U1: refused, silent",
    "MOTOR: refused, silent",
    "MOTOR.SPEED: WORD +200 size 2 block 5",
    "MOTOR.MOTOR_POS: POINT as structured +202 size 6 block 5",
    "MOTOR.MOTOR_POS.X: INT +202 size 2 block 5 'east'",
    "MOTOR.MOTOR_POS.Y: REAL +204 size 4 block 5",
    "MOTOR.LIMITS: ARRAY[-1..0] OF INT as INT[] +208 size 4 block 5",
    "MOTOR.LIMITS[-1]: INT +208 size 2 block 5",
    "MOTOR.LIMITS[0]: INT +210 size 2 block 5",
    "PID1: refused, silent",
    "PID1.SP: INT +400 size 2 block 5",
    "PID1.P: POINT as structured +402 size 6 block 5",
    "PID1.P.X: INT +402 size 2 block 5 relative +0/2 'east'",
    "PID1.P.Y: REAL +402 size 4 block 5 relative +2/4",
    "GRID: refused, silent",
    "GRID[1]: ARRAY[0..1] OF INT as INT[] +600 size 4 block 5",
    "GRID[1][0]: INT +600 size 2 block 5",
    "GRID[1][1]: INT +602 size 2 block 5",
    "GRID[2]: ARRAY[0..1] OF INT as INT[] +604 size 4 block 5",
    "GRID[2][0]: INT +604 size 2 block 5",
    "GRID[2][1]: INT +606 size 2 block 5",
    "PTS: refused, silent",
    "PTS[3]: Point as structured +800 size 6 block 5 'POINT'",
    "PTS[3].X: INT +800 size 2 block 5 'east'",
    "PTS[3].Y: REAL +802 size 4 block 5",
    "PTS[4]: Point as structured +806 size 6 block 5 'POINT'",
    "PTS[4].X: INT +806 size 2 block 5 'east'",
    "PTS[4].Y: REAL +808 size 4 block 5",
};

// Every name below `path`, depth first, as its identifier leads to it.
void Walk(const CHostTable& table, const std::string& path, std::vector<std::string>& lookups)
{
    std::u16string parent = u"PLC1";
    if (!path.empty())
        parent += u"!" + std::u16string(path.begin(), path.end());
    for (const HostElement& element :
         table.BrowsePage({.path = path.c_str(), .parentId = parent.c_str()}, 0).elements) {
        const std::string name = element.itemId.substr(element.itemId.find('!') + 1);
        lookups.push_back(name + ": " + table.Lookup(name.c_str()));
        if (element.kind == 3)
            Walk(table, name, lookups);
    }
}

TEST(BrowseIdentifiers, LeadBackToTheirSymbols)
{
    CLoadedExport plant(kPlant);
    plant.table->SetVerbose(FALSE);
    std::vector<std::string> lookups;
    Walk(plant.table, "", lookups);
    for (std::size_t i = 0; i < std::max(lookups.size(), std::size(kLookups)); ++i)
        EXPECT_EQ(i < lookups.size() ? lookups[i] : "no more", i < std::size(kLookups) ? kLookups[i] : "no more");
}

} // namespace
