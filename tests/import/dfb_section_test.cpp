// How a section of a function block ends, and what is reported then.
#include "import/ImportFixture.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

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

const SectionCase kSections[] = {
    {"no such call", 1, Fault::Result(E_FAIL), "", "A(0,1):3 B(0,0):3 hidden C(0,0):2 D(0,0):0 | E(0,0):3"},
    {"GetElementList FBSource", 1, Fault::ResultAndValue(S_FALSE), "",
     "A(0,1):3 B(0,0):3 hidden C(0,0):2 D(0,0):0 | E(0,0):3"}, // the list counts, not the result
    // The stop flag: the parameter at hand is kept, the section ends, the next one is read.
    {"SelectChildren attribute name AreaBlock", 1, Fault::Result(E_FAIL), "", "A(0,1):3 C(0,0):2 D(0,0):0 | E(0,0):3"},
    {"SelectChildren attribute name RequestAccessRight", 3, Fault::Result(S_OK), "",
     "A(0,1):3 B(0,0):3 hidden C(0,0):3 | E(0,0):3"},
    {"SelectChildren attribute name Size", 4, Fault::Result(S_FALSE), "",
     "A(0,1):3 B(0,0):3 hidden C(0,0):2 D(0,0):0 | E(0,0):3"},
    // The hidden flag of a section's last parameter decides over the sections after it, that of another one does not.
    {"SelectChildren attribute name IsVariableHidden", 1, Fault::Result(E_FAIL), "",
     "A(0,1):3 B(0,0):3 hidden C(0,0):2 D(0,0):0 | E(0,0):3"},
    {"SelectChildren attribute name IsVariableHidden", 2, Fault::Result(E_FAIL), kError,
     "A(0,1):3 B(0,0):3 | E(0,0):3"},
    {"GetAttribute value", 2, Fault::Result(E_FAIL), kError, "A(0,1):3 B(0,0):3 | E(0,0):3"},
    {"GetAttribute value", 2, Fault::ResultAndValue(S_FALSE), "",
     "A(0,1):3 B(0,0):3 C(0,0):2 D(0,0):0 | E(0,0):3"}, // the flag needs S_OK
    {"SelectChildren attribute name IsVariableHidden", 4, Fault::Result(E_FAIL), kError,
     "A(0,1):3 B(0,0):3 hidden C(0,0):2 D(0,0):0 | E(0,0):3"},
    {"SelectChildren attribute name IsVariableHidden", 5, Fault::Result(E_FAIL), kError,
     "A(0,1):3 B(0,0):3 hidden C(0,0):2 D(0,0):0 | E(0,0):3"},
    // Values that do not come.
    {"Item 0", 1, Fault::Result(S_OK), "", "E(0,0):3"},
    {"GetChildren", 1, Fault::Result(E_FAIL), "", " | E(0,0):3"},
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
        EXPECT_EQ(import.fake.LivingObjects(), 0);
    }
}

TEST(FunctionBlockSection, IsRecognisedInAnyCaseAndOthersAreSkipped)
{
    ExportNode tree = ParseExport("DFB P IN A INT OUT B INT PRIVATE C INT PUBLIC D INT INOUT E INT VAR V P");
    std::vector<ExportNode>& sections = tree.children[0].children;
    sections[0].tag = "INPUTparameters";
    sections[2].tag = "comment";
    sections[3].children[0].tag = "anything";
    CTemporaryFolder folder;
    CFakeComponent fake(tree);
    CHostTable table;
    table.Load(folder.WriteFile("plant.kds", ""));
    EXPECT_EQ(table.Browse({.path = "V"}), "A, B, D, E");
}

} // namespace
