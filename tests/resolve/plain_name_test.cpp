// Names of whole variables and of their bits.
#include "resolve/LookupTables.h"

namespace {

const char kPlant[] = "VAR W1 INT AT %MW10 block 5 @20 size 2 access 1 'set point' customer \"Größe €\"\n"
                      "VAR NoSize WORD AT %MW11 @22   VAR Wide UINT AT %MW12 @24 size 4\n"
                      "VAR Unlocated INT @20 size 2\n"
                      "VAR Größe BOOL AT %M1 @1 size 1 access 3\n"
                      "VAR Twice INT AT %MW1 VAR TWICE EBOOL AT %M2 @2 size 1 access 9\n"
                      "VAR 12 INT AT %MW3 size 2\n";

#define W1_REST " access 1 at %MW10"
#define W1_TEXTS " 'set point' customer \"Größe €\""
#define NOT_FOUND "refused: KorvaPro Reader <plant.kds> :SearchAndGetFF: invalid type for "
#define NOT_ANIMABLE                                                                                                   \
    "refused: KorvaPro Reader <plant.kds>:SearchAndGetFF:Can only animate LOCATED EDT which size is 1 or 2"
#define NOT_ANALYSED "refused: KorvaPro Reader <plant.kds>:SearchAndGetFF:Extract bit with bat bit index"
#define NO_ROOT "refused: KorvaPro Reader <plant.kds>:SearchAndGetFF: unknown variable "
#define NO_ROOT_TYPE "refused: KorvaPro Exported Reader:SearchAndGetFF: invalid type "

const LookupCase kNames[] = {
    // Leading blanks only, blanks only.
    {"W1|w1|   W1|.W1", "INT +20 size 2 block 5" W1_REST W1_TEXTS},
    {"W1 ", NOT_FOUND "W1 "},
    {"\tW1", NOT_FOUND "\tW1"},
    // Bits: the digits stand in the address as they were written; the low 8 bits of the number count.
    {"W1.5", "INT as BOOL +20 size 2 block 5 bit 5 access 1 at %MW10.5" W1_TEXTS},
    {"w1.015", "INT as BOOL +20 size 2 block 5 bit 15 access 1 at %MW10.015" W1_TEXTS},
    {"W1.256", "INT as BOOL +20 size 2 block 5 bit 0 access 1 at %MW10.256" W1_TEXTS},
    {"W1.-248", "INT as BOOL +20 size 2 block 5 bit 8 access 1 at %MW10.-248" W1_TEXTS},
    {"W1.", "INT as BOOL +20 size 2 block 5 bit 0 access 1 at %MW10." W1_TEXTS},
    {"W1.-", "INT as BOOL +20 size 2 block 5 bit 0 access 1 at %MW10.-" W1_TEXTS},
    {"NoSize", "WORD +22 size 0 at %MW11"},
    {"W1.16|W1.-1|W1.99999999999|NoSize.0|Wide.0", kNoSuchBit},
    {"Unlocated|Unlocated.5", NOT_ANIMABLE},
    // Upper-casing reaches a to z alone.
    {"gRößE", "BOOL +1 size 1 access 2 at %M1"},
    {"GRÖßE", NOT_FOUND "GRÖßE"},
    {"Twice", "EBOOL +2 size 1 access 0 at %M2"},      // the second of one name
    {"12", "INT as BOOL +0 size 2 bit 12 at %MW3.12"}, // a number asks for a bit too
    // Names that lead nowhere, quoted as they were asked for.
    {"|   ", NOT_FOUND},
    {" .nOwhere", NOT_FOUND ".nOwhere"},
    {"nOwhere.3", NOT_FOUND "nOwhere.3"},
    {"%s%n", NOT_FOUND "%s%n"},
    {"nOwhere.X", NO_ROOT "nOwhere"},
    {"..W1|[1][2]", NO_ROOT},
    {"[1]", NOT_FOUND "[1]"},
    {"W1[0]|w1[|W1.5x", NO_ROOT_TYPE "INT for "},
    {"W1[a]|W1.A.A.A.A.A.A.A.A.A.A.A.A.A.A.A.A", NOT_ANALYSED},
};

TEST(PlainName, ResolvesALocatedVariableOrItsBit)
{
    ExpectLookups(kPlant, kNames);
    CLoadedExport plant(kPlant);
    EXPECT_EQ(plant.table.Lookup(nullptr), NOT_FOUND);
}

TEST(PlainName, FailsSilentlyUnlessVerbose)
{
    CLoadedExport plant(kPlant, FALSE);
    for (const char* name : {"Nowhere", "Unlocated", "W1[a]", "Nowhere.X", "W1.X"})
        EXPECT_EQ(plant.table.Lookup(name), kNoSuchBit) << name;
    plant.table->SetVerbose(TRUE);
    EXPECT_EQ(plant.table.Lookup("Nowhere"), NOT_FOUND "Nowhere");
}

const PlantCase kOwnBits[] = {
    // A variable that is one bit: the descriptor is that of its word.
    {"VAR B EBOOL AT %MW3.5 @21 size 2 bit 9",
     {{"B", "EBOOL as BOOL +20 size 2 bit 17 at %MW3.5"},
      {"B.4", "EBOOL as BOOL +21 size 2 bit 4 at %MW3.5.4"}}}, // a bit that is asked for comes first
    {"VAR B BOOL AT %MW3 @-1 bit 250", {{"B", "BOOL +4294967294 size 2 bit 2 at %MW3"}}},
    {"VAR B BOOL AT %MW3 @2 bit 255", {{"B", "BOOL +2 size 0 at %MW3"}}},
};

TEST(PlainName, OfABitDescribesTheWholeWord)
{
    ExpectLookups(kOwnBits);
}

} // namespace
