// A call of the component that fails takes one value away, or ends a section of a function block, but never the import;
// texts become numbers by fixed rules.
#include "import/ImportFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace {

using testing::HasSubstr;

struct VariableCase
{
    const char* call;
    int occurrence;
    Fault fault;
    const char* lookup; // of A
    const char* listing = "A=!A, B=!B";
    const char* bit = "INT as BOOL +0 size 2 bit 3 at %MW8"; // the lookup of B
};

const char kVariables[] = "VAR A INT AT %MW7 block 5 @20 size 2 access 1 customer plant 'pump' VAR B INT AT %MW8 bit 3";
#define TEXTS " at %MW7 'pump' customer \"plant\""
const char kWhole[] = "INT +20 size 2 block 5 access 1" TEXTS;
const char kNoAccess[] = "INT +20 size 2 block 5" TEXTS;

const VariableCase kVariableCases[] = {
    {"no such call", 1, Fault::Result(E_FAIL), kWhole},
    {"GetChildrenByName variables", 1, Fault::ResultAndValue(S_FALSE), "", ""},
    {"GetChildrenByName variables", 1, Fault::Result(S_OK), "", ""},
    {"Count", 3, Fault::ResultAndValue(S_FALSE), "", ""},
    {"Item 0", 1, Fault::Result(E_FAIL), "", "B=!B"},
    {"Item 0", 1, Fault::ResultAndValue(E_FAIL), kWhole}, // the element counts, not the result
    {"GetAttribute name", 1, Fault::Result(E_FAIL), "", "B=!B"},
    {"GetAttribute typeName", 1, Fault::Result(E_FAIL), "", "B=!B"},
    {"GetAttribute topologicalAddress", 1, Fault::Result(E_FAIL),
     "refused: KorvaPro Reader <plant.kds>:SearchAndGetFF:Can only animate LOCATED EDT which size is 1 or 2"},
    {"GetChildText comment", 1, Fault::Result(E_FAIL), "INT +20 size 2 block 5 access 1 at %MW7 customer \"plant\""},
    {"SelectChildren attribute name AreaBlock", 1, Fault::Result(E_FAIL), "INT +20 size 2 access 1" TEXTS},
    {"SelectChildren attribute name AreaOffset", 1, Fault::ResultAndValue(S_FALSE),
     "INT +0 size 2 block 5 access 1" TEXTS},
    {"GetAttribute value", 3, Fault::Result(E_FAIL), "INT +20 size 0 block 5 access 1" TEXTS},
    {"SelectChildren attribute name CustomerString", 1, Fault::Result(S_OK),
     "INT +20 size 2 block 5 access 1 at %MW7 'pump'"},
    {"Next", 5, Fault::ResultAndValue(S_FALSE), "INT +20 size 2 block 5 access 1 at %MW7 'pump'"},
    {"Next", 1, Fault::ResultAndValue(S_FALSE), kWhole}, // of the block: the element counts
    {"Next", 10, Fault::ResultAndValue(S_FALSE), kWhole},
    {"SelectChildren attribute name ExtractBit", 2, Fault::Result(S_FALSE), kWhole, "A=!A, B=!B",
     "INT +0 size 0 at %MW8"},
    {"GetAttribute value", 6, Fault::Result(E_FAIL), kWhole, "A=!A, B=!B", "INT as BOOL +0 size 2 bit 0 at %MW8"},
    // The access right is 3 whenever its look-up fails, whichever call it was.
    {"SelectChildren attribute name RequestAccessRight", 1, Fault::Result(E_FAIL), kNoAccess},
    {"SelectChildren attribute name RequestAccessRight", 1, Fault::Result(S_FALSE), kNoAccess},
    {"Next", 6, Fault::Result(E_FAIL), kNoAccess},
    {"Next", 6, Fault::ResultAndValue(S_FALSE), kNoAccess},
    {"GetAttribute value", 5, Fault::Result(E_FAIL), kNoAccess},
    {"GetAttribute value", 5, Fault::Result(S_OK), "INT +20 size 2 block 5 access 0" TEXTS}, // delivered empty
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
            EXPECT_EQ(import.table.Lookup("B"), row.bit);
        }
        import.ExpectAllGivenBack();
    }
}

// Properties, several between bars, and the lookup.
const std::pair<const char*, const char*> kNumbers[] = {
    {"|bit -1|access 2", "INT +0 size 0 at %MW7"},
    {"attr AreaOffset \" +12abc\" size \"2 \" block -1", "INT +12 size 2 block 65535 at %MW7"},
    {"@99999999999 block 65541", "INT +2147483647 size 0 block 5 at %MW7"},
    {"attr AreaOffset \" \t-3\" attr AreaOffset 8", "INT +4294967293 size 0 at %MW7"}, // the first of two counts
    {"bit 3 size 2", "INT as BOOL +0 size 2 bit 3 at %MW7"},
    {"bit 259 @4", "INT as BOOL +4 size 2 bit 3 at %MW7"}, // the low 8 bits
    {"bit x", "INT as BOOL +0 size 2 bit 0 at %MW7"},
    {"access 1", "INT +0 size 0 access 1 at %MW7"},
    {"access 3", "INT +0 size 0 access 2 at %MW7"},
    // The last one saturates, it does not wrap to 1.
    {"access 7|access -1|access \"\"|access 4294967297", "INT +0 size 0 access 0 at %MW7"},
};

TEST(ImportedNumbers, AreReadToTheFirstOtherCharacter)
{
    for (const auto& [texts, lookup] : kNumbers) {
        for (const std::string& properties : Split(texts)) {
            CImport import("VAR A INT AT %MW7 " + properties);
            import.Load();
            EXPECT_EQ(import.table.Lookup("a"), lookup) << properties;
        }
    }
}

const char kStructure[] =
    "TYPE M STRUCT A INT block 1 @4 size 2 access 1 hidden 5 'pump' B ARRAY[0..1] OF INT END NODATABLOCK";
const char kArray[] = "TYPE T ARRAY[0..1] OF INT STRUCT A INT END NODATABLOCK";

struct MemberCase
{
    const char* call;
    int occurrence;
    Fault fault;
    const char* dumped; // name, comment, type, numbers of the first member, or what is dumped instead
    const char* exportText = kStructure;
};

const MemberCase kMemberCases[] = {
    {"no such call", 1, Fault::Result(E_FAIL),
     "NbMember 2/DDT/DFB-Member A/pump/INT/2 A590148 (1,4)-2 : 1 0 1/DDT/DFB-Member B//ARRAY[0..1] OF INT/"
     "2012 A591088 (0,0)-0 : 3 0 0/"},
    {"GetElementList DDTSource", 1, Fault::ResultAndValue(S_FALSE), "ListType 0/"},
    {"Count", 1, Fault::ResultAndValue(E_FAIL), "ListType 0/"},
    {"Item 0", 1, Fault::Result(S_OK), "ListType 0/"},
    {"Item 0", 1, Fault::ResultAndValue(E_FAIL), "DDTStruct M/0/NbMember 2/"},
    {"GetAttribute DDTName", 1, Fault::Result(E_FAIL), "DDTStruct/DDTStruct/0/NbMember 2/"},
    {"GetChildrenByName array", 1, Fault::Result(E_FAIL), "DDTStruct M/0/NbMember 2/"},
    {"GetChildrenByName structure", 1, Fault::ResultAndValue(S_FALSE), "ListType 0/"},
    {"Next", 2, Fault::ResultAndValue(S_FALSE), "ListType 0/"}, // of the structure; of an array the element counts
    {"Next", 1, Fault::ResultAndValue(S_FALSE), "DDTArray T/0/INT/2/1/0 1/", kArray},
    {"GetText", 1, Fault::Result(E_FAIL), "ListType 0/", kArray},
    {"GetChildren", 3, Fault::ResultAndValue(S_FALSE), "ListType 0/"},
    {"GetAttribute typeName", 1, Fault::Result(E_FAIL), "A/pump//0 208 (1,4)-2 : 1 0 1/"},
    {"GetChildText comment", 1, Fault::Result(E_FAIL), "A//INT/2 A590148 (1,4)-2 : 1 0 1/"},
    {"SelectChildren attribute name AreaBlock", 1, Fault::Result(E_FAIL), "INT/2 A590148 (0,4)-2 : 1 0 1/"},
    {"GetAttribute value", 2, Fault::Result(E_FAIL), "INT/2 A590148 (1,0)-2 : 1 0 1/"},
    {"SelectChildren attribute name RequestAccessRight", 1, Fault::Result(E_FAIL), "INT/2 A590148 (1,4)-2 : 3 0 1/"},
    {"GetAttribute value", 4, Fault::Result(E_FAIL), "INT/2 A590148 (1,4)-2 : 0 0 1/"},
    {"SelectChildren attribute name IsVariableHidden", 1, Fault::Result(S_OK), "INT/2 A590148 (1,4)-2 : 1 0 0/"},
    {"GetAttribute value", 5, Fault::ResultAndValue(E_FAIL), "INT/2 A590148 (1,4)-2 : 1 0 1/"}, // hidden, as it came
    // The type is classified last, so this throw comes before the array is registered.
    {"SelectChildren attribute name IsVariableHidden", 2, Fault::Number(), "ListType 0/"},
};

TEST(AbsentValue, OfAMemberLeavesTheRestAlone)
{
    for (const MemberCase& row : kMemberCases) {
        SCOPED_TRACE(row.call + std::string(" ") + ResultName(row.fault.result));
        CImport import(row.exportText);
        import.fake.Fail(row.call, row.occurrence, row.fault);
        EXPECT_EQ(import.Load(), 0);
        EXPECT_THAT(import.DumpedText(), HasSubstr(row.dumped));
        import.ExpectAllGivenBack();
    }
}

const char kError[] = "KorvaPro Reader <plant.kds>: KDV file error in DFB parameter 0x80004005 ";

struct SectionCase
{
    const char* call;
    int occurrence;
    Fault fault;
    const char* messages;
    const char* members; // of P, then of Q
};

// Twice two parameters, then one; each has neither properties nor a hidden flag unless written.
const char kBlocks[] =
    "DFB P IN A INT @1 B INT hidden 5 OUT C INT access 3 D INT access 7 DFB Q IN E INT 'set' access 2\n"
    "NODATABLOCK";

#define WHOLE "A(0,1):3 B(0,0):3 hidden C(0,0):2 D(0,0):0 | E(0,0):3"

const SectionCase kSections[] = {
    {"no such call", 1, Fault::Result(E_FAIL), "", WHOLE},
    {"GetElementList FBSource", 1, Fault::ResultAndValue(S_FALSE), "", WHOLE}, // the list counts, not the result
    // The stop flag: the parameter at hand is kept, the section ends, the next one is read.
    {"SelectChildren attribute name AreaBlock", 1, Fault::Result(E_FAIL), "", "A(0,1):3 C(0,0):2 D(0,0):0 | E(0,0):3"},
    {"SelectChildren attribute name RequestAccessRight", 3, Fault::Result(S_OK), "",
     "A(0,1):3 B(0,0):3 hidden C(0,0):3 | E(0,0):3"},
    {"SelectChildren attribute name Size", 4, Fault::Result(S_FALSE), "", WHOLE},
    {"SelectChildren attribute name AreaOffset", 1, Fault::ResultAndValue(E_FAIL), "", WHOLE}, // the list counts
    {"SelectChildren attribute name IsVariableHidden", 2, Fault::ResultAndValue(E_FAIL), "", WHOLE},
    // The hidden flag of a section's last parameter decides over the sections after it, that of another one does not.
    {"SelectChildren attribute name IsVariableHidden", 1, Fault::Result(E_FAIL), "", WHOLE},
    {"SelectChildren attribute name IsVariableHidden", 2, Fault::Result(E_FAIL), kError,
     "A(0,1):3 B(0,0):3 | E(0,0):3"},
    {"GetAttribute value", 2, Fault::Result(E_FAIL), kError, "A(0,1):3 B(0,0):3 | E(0,0):3"},
    {"GetAttribute value", 2, Fault::ResultAndValue(S_FALSE), "",
     "A(0,1):3 B(0,0):3 C(0,0):2 D(0,0):0 | E(0,0):3"}, // the flag needs S_OK
    {"SelectChildren attribute name IsVariableHidden", 4, Fault::Result(E_FAIL), kError, WHOLE},
    {"SelectChildren attribute name IsVariableHidden", 5, Fault::Result(E_FAIL), kError, WHOLE},
    // Values that do not come.
    {"Item 0", 1, Fault::Result(S_OK), "", "E(0,0):3"},
    {"GetChildren", 1, Fault::Result(E_FAIL), "", " | E(0,0):3"},
    {"Next", 1, Fault::ResultAndValue(E_FAIL), "", " | E(0,0):3"},
    {"GetTagName", 1, Fault::Result(E_FAIL), "", "C(0,0):2 D(0,0):0 | E(0,0):3"},
    {"GetChildren", 2, Fault::Result(E_FAIL), "", "C(0,0):2 D(0,0):0 | E(0,0):3"},
    {"GetAttribute name", 5, Fault::Result(E_FAIL), "", "A(0,1):3 B(0,0):3 hidden C(0,0):2 (0,0):0 | E(0,0):3"},
    {"GetAttribute value", 1, Fault::Result(E_FAIL), "", "A(0,0):3 B(0,0):3 hidden C(0,0):2 D(0,0):0 | E(0,0):3"},
};

// The members of each dumped definition as in the table.
std::string ShortMembers(const std::vector<std::string>& lines)
{
    std::string text;
    for (std::size_t i = 0; i + 3 < lines.size(); ++i) {
        if (lines[i] == "DFBDef")
            text += i > 1 ? " | " : "";
        if (!lines[i].starts_with("DDT/DFB-Member"))
            continue;
        const std::string& numbers = lines[i + 3]; // " 2 A590148 (0,1)-0 : 3 0 0"
        std::size_t open = numbers.find('(');
        text += (text.empty() || text.ends_with("| ") ? "" : " ") +
                lines[i].substr(std::min<std::size_t>(15, lines[i].size()));
        text += numbers.substr(open, numbers.find(')') - open + 1) + ":" + numbers[numbers.find(" : ") + 3];
        text += numbers.ends_with(" 1") ? " hidden" : "";
    }
    return text;
}

TEST(FunctionBlockSection, EndsWhereTheComponentFails)
{
    for (const SectionCase& row : kSections) {
        SCOPED_TRACE(row.call + std::string(" ") + std::to_string(row.occurrence) + " " + ResultName(row.fault.result));
        CImport import(kBlocks);
        import.fake.Fail(row.call, row.occurrence, row.fault);
        EXPECT_EQ(import.Load(FALSE), 0);
        std::string messages = import.table.TakeMessages();
        std::string withoutDataBlock = "KorvaPro Reader <plant.kds>:catched exception on BrowseAllItemInCMap";
        EXPECT_EQ(messages, (*row.messages ? row.messages + std::string(" | ") : "") + withoutDataBlock);
        EXPECT_EQ(ShortMembers(import.DumpedLines()), row.members);
        import.ExpectAllGivenBack();
    }
}

TEST(FunctionBlockSection, IsRecognisedInAnyCaseAndOthersAreSkipped)
{
    CTemporaryFolder folder;
    CHostTable table;
    table.Load(WriteExport(folder, "RAW <FBSource nameOfFBType='P'>"
                                   "<INPUTparameters><variables name='A' typeName='INT'/></INPUTparameters>"
                                   "<outputParameters><variables name='B' typeName='INT'/></outputParameters>"
                                   "<comment><variables name='C' typeName='INT'/></comment>"
                                   "<publicLocalVariables><anything name='D' typeName='INT'/></publicLocalVariables>"
                                   "<inOutParameters><variables name='E' typeName='INT'/></inOutParameters>"
                                   "</FBSource>\nVAR V P"));
    EXPECT_EQ(table.Browse({.path = "V"}), "A, B, D, E");
}

} // namespace
