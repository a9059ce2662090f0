// Names of whole variables and of their bits.
#include "resolve/LoadedPlant.h"

#include "symb/PropertyEntry.h"

#include <cstdlib>

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
    {"W1", "INT +20 size 2 block 5" W1_REST W1_TEXTS},
    {"w1", "INT +20 size 2 block 5" W1_REST W1_TEXTS},
    {"   W1", "INT +20 size 2 block 5" W1_REST W1_TEXTS}, // leading blanks only, blanks only
    {".W1", "INT +20 size 2 block 5" W1_REST W1_TEXTS},
    {"W1 ", NOT_FOUND "W1 "},
    {"\tW1", NOT_FOUND "\tW1"},
    // Bits: the digits stand in the address as they were written.
    {"W1.5", "INT as BOOL +20 size 2 block 5 bit 5 access 1 at %MW10.5" W1_TEXTS},
    {"w1.015", "INT as BOOL +20 size 2 block 5 bit 15 access 1 at %MW10.015" W1_TEXTS},
    {"W1.256", "INT as BOOL +20 size 2 block 5 bit 0 access 1 at %MW10.256" W1_TEXTS}, // its low 8 bits
    {"W1.-248", "INT as BOOL +20 size 2 block 5 bit 8 access 1 at %MW10.-248" W1_TEXTS},
    {"W1.", "INT as BOOL +20 size 2 block 5 bit 0 access 1 at %MW10." W1_TEXTS},
    {"W1.-", "INT as BOOL +20 size 2 block 5 bit 0 access 1 at %MW10.-" W1_TEXTS},
    {"W1.16", kNoSuchBit},
    {"W1.-1", kNoSuchBit},
    {"W1.99999999999", kNoSuchBit},
    {"NoSize", "WORD +22 size 0 at %MW11"},
    {"NoSize.0", kNoSuchBit},
    {"Wide.0", kNoSuchBit},
    {"Unlocated", NOT_ANIMABLE},
    {"Unlocated.5", NOT_ANIMABLE},
    // Upper-casing reaches a to z alone.
    {"gRößE", "BOOL +1 size 1 access 2 at %M1"},
    {"GRÖßE", NOT_FOUND "GRÖßE"},
    {"Twice", "EBOOL +2 size 1 access 0 at %M2"},      // the second of one name
    {"12", "INT as BOOL +0 size 2 bit 12 at %MW3.12"}, // a number asks for a bit too
    // Names that lead nowhere, quoted as they were asked for.
    {"", NOT_FOUND},
    {"   ", NOT_FOUND},
    {".", NOT_FOUND "."},
    {" .nOwhere", NOT_FOUND ".nOwhere"},
    {"nOwhere.3", NOT_FOUND "nOwhere.3"},
    {"%s%n", NOT_FOUND "%s%n"},
    {"nOwhere.X", NO_ROOT "nOwhere"},
    {"..W1", NO_ROOT},
    {"[1]", NOT_FOUND "[1]"},
    {"[1][2]", NO_ROOT},
    {"W1[0]", NO_ROOT_TYPE "INT for "},
    {"w1[", NO_ROOT_TYPE "INT for "},
    {"W1.5x", NO_ROOT_TYPE "INT for "},
    {"W1[a]", NOT_ANALYSED},
    {"W1.A.A.A.A.A.A.A.A.A.A.A.A.A.A.A.A", NOT_ANALYSED},
};

TEST(PlainName, ResolvesALocatedVariableOrItsBit)
{
    ExpectLookups(kPlant, kNames);
}

TEST(PlainName, FailsSilentlyUnlessVerbose)
{
    CLoadedPlant plant(kPlant, FALSE);
    for (const char* name : {"Nowhere", "Unlocated", "W1[a]", "Nowhere.X", "W1.X"})
        EXPECT_EQ(plant.table.Lookup(name), "refused, silent") << name;
    plant.table->SetVerbose(TRUE);
    EXPECT_EQ(plant.table.Lookup("Nowhere"), NOT_FOUND "Nowhere");
}

const PlantCase kOwnBits[] = {
    // A variable that is one bit: the descriptor is that of its word.
    {"VAR B BOOL AT %MW3.5 @6 size 1 bit 5", {{"B", "BOOL +6 size 2 bit 5 at %MW3.5"}, {"B.5", kNoSuchBit}}},
    {"VAR B BOOL AT %MW3.5 @21 size 1 bit 3", {{"B", "BOOL +20 size 2 bit 11 at %MW3.5"}}},
    {"VAR B EBOOL AT %MW3.5 @21 size 2 bit 9",
     {{"B", "EBOOL as BOOL +20 size 2 bit 17 at %MW3.5"},
      {"B.4", "EBOOL as BOOL +21 size 2 bit 4 at %MW3.5.4"}}}, // a bit that is asked for comes first
    {"VAR B WORD AT %MW3 @8 size 4 bit 0", {{"B", "WORD as BOOL +8 size 2 bit 0 at %MW3"}}},
    {"VAR B BOOL AT %MW3 @-1 bit 250", {{"B", "BOOL +4294967294 size 2 bit 2 at %MW3"}}},
    {"VAR B BOOL AT %MW3 @2 bit 255", {{"B", "BOOL +2 size 0 at %MW3"}}},
};

TEST(PlainName, OfABitDescribesTheWholeWord)
{
    for (const PlantCase& row : kOwnBits)
        ExpectLookups(row.exportText, row.lookups);
}

TEST(PlainName, ServesFiveTypes)
{
    for (std::string type : {"BOOL", "EBOOL", "INT", "UINT", "WORD"}) {
        CLoadedPlant plant("VAR A " + type + " AT %MW1 size 2");
        EXPECT_EQ(plant.table.Lookup("A"), type + " +0 size 2 at %MW1");
    }
    for (std::string type : {"BYTE", "DINT", "UDINT", "DWORD", "REAL", "TOD", "TIME", "DATE", "DT", "STRING",
                             "STRING[2]", "WSTRING", "ARRAY[0..0] OF INT", "S", "F"}) {
        CLoadedPlant plant("TYPE S STRUCT A INT END DFB F IN A INT END VAR A " + type + " AT %MW1 size 2");
        EXPECT_EQ(plant.table.Lookup("A"), NOT_ANIMABLE) << type;
        EXPECT_EQ(plant.table.Lookup("A.1"), NOT_ANIMABLE) << type;
    }
}

// What the host view of the other tests does not compare: how many properties there are, and texts that stay.
TEST(PlainName, HasSevenPropertiesAndAPathSix)
{
    CLoadedPlant plant("VAR A INT AT %MW1 size 2 VAR T ARRAY[0..1,0..0] OF INT AT %MW9 size 4");
    const struct
    {
        DWORD selector;
        const char* name;
        HRESULT result;
        DWORD properties;
        const char* address;
    } rows[] = {{0, "A", 0, 7, "%MW1"},
                {1, "A", 0, 7, "%MW1"},
                {1, "T[0]", 0, 6, "%MW0"},
                {0, "T[1]", 0, 6, ""},
                {0, "T[2]", E_INVALIDARG, 0, "before"},
                {0, "B", -1, 0, "before"},
                {2, "A", E_INVALIDARG, 99, "before"}}; // the outputs are not touched
    for (const auto& row : rows) {
        CString address("before"), comment("before");
        int marker = 0;
        void* descriptor = &marker;
        void* properties = &marker;
        DWORD count = 99;
        EXPECT_EQ(
            plant.table->SearchAndGetFF(row.selector, row.name, address, comment, &descriptor, &count, &properties),
            row.result);
        EXPECT_EQ(count, row.properties) << row.name;
        EXPECT_EQ(address.View(), row.address) << row.name;
        if (row.selector > 1) {
            EXPECT_TRUE(descriptor == &marker && properties == &marker);
            continue;
        }
        EXPECT_EQ(descriptor != nullptr, row.result == 0);
        std::free(descriptor);
        delete[] static_cast<PropertyEntry*>(properties);
    }
}

TEST(PlainName, NeedsEveryOutput)
{
    CLoadedPlant plant("VAR A INT AT %MW1 size 2");
    CString text;
    void* descriptor = nullptr;
    void* properties = nullptr;
    DWORD count = 0;
    EXPECT_EQ(plant.table->SearchAndGetFF(0, "A", text, text, nullptr, &count, &properties), E_INVALIDARG);
    EXPECT_EQ(plant.table->SearchAndGetFF(0, "A", text, text, &descriptor, nullptr, &properties), E_INVALIDARG);
    EXPECT_EQ(plant.table->SearchAndGetFF(0, "A", text, text, &descriptor, &count, nullptr), E_INVALIDARG);
    EXPECT_EQ(plant.table.Resolve(nullptr).Text(), NOT_FOUND);
}

} // namespace
