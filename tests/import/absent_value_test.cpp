// A call of the component that fails takes one value away, never the import; texts become numbers by fixed rules.
#include "import/ImportFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::HasSubstr;

struct VariableCase
{
    const char* call;
    int occurrence;
    Fault fault;
    const char* lookup; // of A
    const char* listing = "A=!A, B=!B";
};

const char kVariables[] = "VAR A INT AT %MW7 block 5 @20 size 2 access 1 customer plant 'pump' VAR B INT";
const char kWhole[] = "INT +20 size 2 block 5 access 1 at %MW7 'pump' customer \"plant\"";

const VariableCase kVariableCases[] = {
    {"no such call", 1, Fault::Result(E_FAIL), kWhole},
    {"GetChildrenByName variables", 1, Fault::ResultAndValue(S_FALSE), "", ""},
    {"GetChildrenByName variables", 1, Fault::Result(S_OK), "", ""},
    {"Count", 3, Fault::ResultAndValue(S_FALSE), "", ""},
    {"Item 0", 1, Fault::Result(E_FAIL), "", "B=!B"},
    {"Item 0", 1, Fault::ResultAndValue(E_FAIL), kWhole}, // the element counts, not the result
    {"GetAttribute name", 1, Fault::Result(E_FAIL), "", "B=!B"},
    {"GetAttribute typeName", 1, Fault::Result(E_FAIL), "", "B=!B"},
    {"GetChildText comment", 1, Fault::Result(E_FAIL), "INT +20 size 2 block 5 access 1 at %MW7 customer \"plant\""},
    {"SelectChildren attribute name AreaBlock", 1, Fault::Result(E_FAIL),
     "INT +20 size 2 access 1 at %MW7 'pump' customer \"plant\""},
    {"SelectChildren attribute name AreaOffset", 1, Fault::ResultAndValue(S_FALSE),
     "INT +0 size 2 block 5 access 1 at %MW7 'pump' customer \"plant\""},
    {"GetAttribute value", 3, Fault::Result(E_FAIL),
     "INT +20 size 0 block 5 access 1 at %MW7 'pump' customer \"plant\""},
    {"SelectChildren attribute name CustomerString", 1, Fault::Result(S_OK),
     "INT +20 size 2 block 5 access 1 at %MW7 'pump'"},
    {"Next", 5, Fault::ResultAndValue(S_FALSE), "INT +20 size 2 block 5 access 1 at %MW7 'pump'"},
    {"Next", 1, Fault::ResultAndValue(S_FALSE), kWhole}, // of the block: the element counts
    // The access right is 3 whenever its look-up fails, whichever call it was.
    {"SelectChildren attribute name RequestAccessRight", 1, Fault::Result(E_FAIL),
     "INT +20 size 2 block 5 at %MW7 'pump' customer \"plant\""},
    {"SelectChildren attribute name RequestAccessRight", 1, Fault::Result(S_FALSE),
     "INT +20 size 2 block 5 at %MW7 'pump' customer \"plant\""},
    {"Next", 6, Fault::Result(E_FAIL), "INT +20 size 2 block 5 at %MW7 'pump' customer \"plant\""},
    {"Next", 6, Fault::ResultAndValue(S_FALSE), "INT +20 size 2 block 5 at %MW7 'pump' customer \"plant\""},
    {"GetAttribute value", 5, Fault::Result(E_FAIL), "INT +20 size 2 block 5 at %MW7 'pump' customer \"plant\""},
    {"GetAttribute value", 5, Fault::Result(S_OK),
     "INT +20 size 2 block 5 access 0 at %MW7 'pump' customer \"plant\""}, // delivered empty
};

TEST(AbsentValue, OfAVariableLeavesTheRestAlone)
{
    for (const VariableCase& row : kVariableCases) {
        SCOPED_TRACE(row.call + std::string(" ") + std::to_string(row.occurrence) + " " + ResultName(row.fault.result));
        CImport import(kVariables);
        import.fake.Fail(row.call, row.occurrence, row.fault);
        EXPECT_EQ(import.Load(), 0);
        EXPECT_EQ(import.table.TakeMessages(), "");
        EXPECT_EQ(import.table.BrowsePage({}, 0).Text(), row.listing);
        if (*row.lookup) {
            EXPECT_EQ(import.table.Lookup("A"), row.lookup);
        }
        EXPECT_EQ(import.fake.LivingObjects(), 0);
    }
}

TEST(AbsentValue, AVariableWithoutItsAddressIsListedButNotResolved)
{
    CImport import(kVariables);
    import.fake.Fail("GetAttribute topologicalAddress", 1, Fault::Result(E_FAIL));
    import.Load();
    EXPECT_EQ(import.table.Lookup("A"),
              "refused: KorvaPro Reader <plant.kds>:SearchAndGetFF:Can only animate LOCATED EDT which size is 1 or 2");
    EXPECT_EQ(import.table.BrowsePage({.filter = "%UL"}, 0).Text(), "A=!A, B=!B");
}

struct NumberCase
{
    const char* properties;
    const char* lookup;
};

const NumberCase kNumbers[] = {
    {"", "INT +0 size 0 at %MW7"},
    {"attr AreaOffset \" +12abc\" size \"2 \" block -1", "INT +12 size 2 block 65535 at %MW7"},
    {"@99999999999 block 65541", "INT +2147483647 size 0 block 5 at %MW7"},
    {"attr AreaOffset \" \t-3\" attr AreaOffset 8", "INT +4294967293 size 0 at %MW7"}, // the first of two counts
    {"bit 3 size 2", "INT as BOOL +0 size 2 bit 3 at %MW7"},
    {"bit 259 @4", "INT as BOOL +4 size 2 bit 3 at %MW7"}, // the low 8 bits
    {"bit -1", "INT +0 size 0 at %MW7"},
    {"bit x", "INT as BOOL +0 size 2 bit 0 at %MW7"},
    {"access 1", "INT +0 size 0 access 1 at %MW7"},
    {"access 2", "INT +0 size 0 at %MW7"},
    {"access 3", "INT +0 size 0 access 2 at %MW7"},
    {"access 7", "INT +0 size 0 access 0 at %MW7"},
    {"access -1", "INT +0 size 0 access 0 at %MW7"},
    {"access \"\"", "INT +0 size 0 access 0 at %MW7"},
    {"access 4294967297", "INT +0 size 0 access 0 at %MW7"}, // saturates, does not wrap to 1
};

TEST(ImportedNumbers, AreReadToTheFirstOtherCharacter)
{
    for (const NumberCase& row : kNumbers) {
        CImport import(std::string("VAR A INT AT %MW7 ") + row.properties);
        import.Load();
        EXPECT_EQ(import.table.Lookup("a"), row.lookup) << row.properties;
    }
}

struct MemberCase
{
    const char* call;
    int occurrence;
    Fault fault;
    const char* dumped; // name, comment, type, numbers of the first member, or what is dumped instead
};

const char kStructure[] = "TYPE M STRUCT A INT block 1 @4 size 2 access 1 hidden 5 'pump' B BOOL END NODATABLOCK";

const MemberCase kMemberCases[] = {
    {"no such call", 1, Fault::Result(E_FAIL),
     "NbMember 2/DDT/DFB-Member A/pump/INT/2 A590148 (1,4)-2 : 1 0 1/DDT/DFB-Member B//BOOL/"
     "B 2290148 (0,0)-0 : 3 0 0/"},
    {"GetElementList DDTSource", 1, Fault::ResultAndValue(S_FALSE), "ListType 0/"},
    {"Count", 1, Fault::ResultAndValue(E_FAIL), "ListType 0/"},
    {"Item 0", 1, Fault::Result(S_OK), "ListType 0/"},
    {"Item 0", 1, Fault::ResultAndValue(E_FAIL), "DDTStruct M/0/NbMember 2/"},
    {"GetAttribute DDTName", 1, Fault::Result(E_FAIL), "DDTStruct/DDTStruct/0/NbMember 2/"},
    {"GetChildrenByName array", 1, Fault::Result(E_FAIL), "DDTStruct M/0/NbMember 2/"},
    {"GetChildrenByName structure", 1, Fault::ResultAndValue(S_FALSE), "ListType 0/"},
    {"GetChildren", 3, Fault::ResultAndValue(S_FALSE), "ListType 0/"},
    {"GetAttribute typeName", 1, Fault::Result(E_FAIL), "A/pump//0 208 (1,4)-2 : 1 0 1/"},
    {"GetChildText comment", 1, Fault::Result(E_FAIL), "A//INT/2 A590148 (1,4)-2 : 1 0 1/"},
    {"SelectChildren attribute name AreaBlock", 1, Fault::Result(E_FAIL), "INT/2 A590148 (0,4)-2 : 1 0 1/"},
    {"GetAttribute value", 2, Fault::Result(E_FAIL), "INT/2 A590148 (1,0)-2 : 1 0 1/"},
    {"SelectChildren attribute name RequestAccessRight", 1, Fault::Result(E_FAIL), "INT/2 A590148 (1,4)-2 : 3 0 1/"},
    {"SelectChildren attribute name IsVariableHidden", 1, Fault::Result(S_OK), "INT/2 A590148 (1,4)-2 : 1 0 0/"},
};

TEST(AbsentValue, OfAMemberLeavesTheRestAlone)
{
    for (const MemberCase& row : kMemberCases) {
        SCOPED_TRACE(row.call + std::string(" ") + ResultName(row.fault.result));
        CImport import(kStructure);
        import.fake.Fail(row.call, row.occurrence, row.fault);
        EXPECT_EQ(import.Load(), 0);
        EXPECT_THAT(import.DumpedText(), HasSubstr(row.dumped));
        EXPECT_EQ(import.fake.LivingObjects(), 0);
    }
}

} // namespace
