// How Init ends when the component fails, call by call, and when the export ends too early.
#include "import/ImportFixture.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

const char kPlant[] = "TYPE Motor STRUCT SPEED INT @0 size 2 END\n"
                      "DFB Pid IN SP INT @0 size 2 END\n"
                      "VAR MOTOR1 Motor @100 size 2\n"
                      "VAR PID1   Pid   @200 size 2\n";
const char kNothing[] = "KorvaPro Reader <plant.kds>:catched exception on Init";

struct ExitCase
{
    const char* call;
    Fault fault;
    LONG result;
    const char* message;
};

#define READER "KorvaPro Reader <plant.kds>"

const ExitCase kExits[] = {
    {"CreateInstance", Fault::Result(E_FAIL), -1, READER ":Init: Impossible to create the KorvaProServices"},
    {"CreateInstance", Fault::Result(S_OK), -1, READER ":Init: Impossible to create the KorvaProServices"},
    {"QueryInterface ImportSource", Fault::Result(E_NOINTERFACE), -1,
     READER ":Init: Impossible to retrieve to ImportSource"},
    {"QueryInterface ImportSource", Fault::Result(S_FALSE), -1, READER ":Init: Impossible to retrieve to ImportSource"},
    {"InitImportWithoutDlg", Fault::Result(E_FAIL), -1,
     "KorvaPro Exported Reader:Init: Error calling InitImportWithoutDlg"},
    {"InitImportWithoutDlg", Fault::Result(S_FALSE), 0, ""},
    {"ImportFile", Fault::Result(E_FAIL), -1, READER " :Init: Impossible to load the exported file .kds 0x80004005"},
    {"ImportFile", Fault::Result(static_cast<HRESULT>(0x8000FFFFU)), -1,
     READER " :Init: Impossible to load the exported file .kds 0x8000FFFF"},
    {"ImportFile", Fault::Result(S_FALSE), 0, ""},
    {"QueryInterface WalkSource", Fault::Result(E_NOINTERFACE), -1,
     READER ":Init: Impossible to retrieve to WalkSource"},
    {"QueryInterface WalkSource", Fault::Result(S_OK), -1, READER ":Init: Impossible to retrieve to WalkSource"},
    {"FindElement", Fault::Result(E_FAIL), 0, READER ":catched exception on BrowseAllItemInCMap"},
    {"FindElement", Fault::ResultAndValue(E_FAIL), 0, ""},
};

TEST(Init, EachExitHasItsMessageAndGivesEverythingBack)
{
    for (const ExitCase& row : kExits) {
        for (BOOL verbose : {FALSE, TRUE}) {
            SCOPED_TRACE(std::string(row.call) + " " + ResultName(row.fault.result) + (verbose ? " verbose" : ""));
            CImport import(kPlant);
            import.fake.Fail(row.call, 1, row.fault);
            EXPECT_EQ(import.Load(verbose), row.result);
            const bool verboseOnly = std::string_view(row.message).ends_with("WalkSource");
            EXPECT_EQ(import.table.TakeMessages(), verboseOnly && !verbose ? "" : row.message);
            import.ExpectAllGivenBack();
            EXPECT_EQ(import.table->GetHeaderName(), row.result == 0 ? "Unknwow" : "");
            EXPECT_EQ(import.HasDump(), row.result == 0);
            if (row.result != 0) {
                std::string calls = import.fake.TakeCalls();
                EXPECT_EQ(calls.find(", ", calls.find(row.call)), std::string::npos) << "further calls: " << calls;
                EXPECT_EQ(import.table.BrowsePage({}, 0).Text(), "");
            }
        }
    }
}

struct ThrownCase
{
    Fault fault;
    const char* tail; // of the message
};

const ThrownCase kThrown[] = {
    {Fault::Standard("disk on fire"), " with error message: disk on fire"},
    {Fault::WithoutText(), " with error message: "},
    {Fault::Number(), ""},
    {Fault::NumberAndValue(), ""}, // an interface that came before counts no more
};

TEST(Init, GoesOnWithoutAnExportAfterAnExceptionInTheFirstPhase)
{
    for (const char* call : {"CreateInstance", "QueryInterface ImportSource", "InitImportWithoutDlg", "ImportFile",
                             "QueryInterface WalkSource"}) {
        for (const ThrownCase& thrown : kThrown) {
            if (!kCreationMayThrow && std::string_view(call) == "CreateInstance")
                continue;
            SCOPED_TRACE(call + std::string(thrown.tail));
            CImport import(kPlant);
            import.fake.Fail(call, 1, thrown.fault);
            EXPECT_EQ(import.Load(FALSE), 0);
            EXPECT_EQ(import.table.TakeMessages(), kNothing + std::string(thrown.tail) + " | " + kNothing);
            EXPECT_EQ(import.table->GetHeaderName(), "Unknwow");
            import.ExpectAllGivenBack();
            EXPECT_FALSE(import.HasDump());
            EXPECT_EQ(import.fake.TakeCalls().find("FindElement"), std::string::npos);
            EXPECT_EQ(import.table.BrowsePage({}, 0).Text(), "");
        }
    }
}

// Where an exception breaks off, and what is loaded nevertheless.
struct BrokenImportCase
{
    const char* call;
    int occurrence;
    const char* operations; // whose messages come, in their order
    const char* variables;
};

const BrokenImportCase kBrokenImports[] = {
    {"FindElement", 1, "Init", ""},
    {"GetElementList DDTSource", 1, "BrowseAllDDTInCMap", "PID1=!PID1 >"},
    {"GetAttribute DDTName", 1, "BrowseAllDDTInCMap", "PID1=!PID1 >"},
    {"GetElementList FBSource", 1, "BrowseAllDFBInCMap Init", ""},
    {"GetTagName", 1, "BrowseAllDFBInCMap Init", ""},
    {"GetChildrenByName variables", 1, "BrowseAllItemInCMap", ""},
    {"GetAttribute topologicalAddress", 2, "BrowseAllItemInCMap", "MOTOR1=!MOTOR1 >"},
};

TEST(Init, KeepsWhatWasImportedBeforeAnException)
{
    for (const BrokenImportCase& row : kBrokenImports) {
        for (const ThrownCase& thrown : kThrown) {
            SCOPED_TRACE(row.call + std::string(thrown.tail));
            CImport import(kPlant);
            import.fake.Fail(row.call, row.occurrence, thrown.fault);
            EXPECT_EQ(import.Load(FALSE), 0);
            std::string expected;
            for (const std::string& operation : Split(row.operations, " "))
                expected += (expected.empty() ? "" : " | ") +
                            ("KorvaPro Reader <plant.kds>:catched exception on " + operation) + thrown.tail;
            EXPECT_EQ(import.table.TakeMessages(), expected);
            EXPECT_EQ(import.table.BrowsePage({}, 0).Text(), row.variables);
            EXPECT_EQ(import.HasDump(), !std::string_view(row.operations).ends_with("Init"));
            import.ExpectAllGivenBack();
        }
    }
}

TEST(Init, ASecondLoadAddsToTheFirst)
{
    CImport import("VAR A INT AT %MW1 size 2 VAR B INT AT %MW2 size 2");
    import.Load();
    import.fake.Show("VAR b WORD AT %MW7 size 2 VAR C INT AT %MW3 size 2");
    EXPECT_EQ(import.Load(), 0);
    EXPECT_EQ(import.table.BrowsePage({}, 0).Text(), "A=!A, b=!b, C=!C");
    EXPECT_EQ(import.table.Lookup("B"), "WORD +0 size 2 at %MW7");
}

const char kEveryKind[] = "TYPE Motor STRUCT SPEED INT @4 size 2 'rpm' END\n"
                          "TYPE Table ARRAY[1..2,0..3] OF Motor\n"
                          "DFB Pid IN SP REAL @0 size 4 OUT OP Pid @4 size 4 hidden 1 END\n"
                          "VAR W1 WORD AT %MW10 block 5 @20 size 2 bit 3 access 1 'a word' customer \"line 1\"\n"
                          "VAR M1 Motor @200 size 40\n"
                          "VAR T1 Table @400 size 320\n";

// A rule applies to the calls that begin with its text: which of them the call at `index` is.
int OccurrenceOf(const std::vector<std::string>& calls, std::size_t index)
{
    int occurrence = 0;
    for (std::size_t i = 0; i <= index; ++i)
        occurrence += calls[i].starts_with(calls[index]);
    return occurrence;
}

void FailOnce(const std::string& call, int occurrence, const Fault& fault)
{
    CImport import(kEveryKind);
    import.fake.Fail(call, occurrence, fault);
    const LONG result = import.Load();
    const std::string messages = import.table.TakeMessages();
    EXPECT_TRUE(result == 0 || (result == -1 && messages.find("Init") != std::string::npos)) << result << messages;
    const bool thrown = fault.Throws();
    // An exception is always told, and nothing is told in more than a line for each phase it can reach.
    EXPECT_EQ(messages.empty() && thrown, false);
    import.ExpectAllGivenBack();
    // What is there answers, and a second load brings the rest.
    import.table.Lookup("M1.SPEED");
    EXPECT_EQ(import.table.BrowsePage({}, 0).result, 0);
    EXPECT_EQ(import.Load(), 0);
    EXPECT_EQ(import.table.Lookup("M1.SPEED"), "INT +204 size 2 'rpm'");
    import.ExpectAllGivenBack();
}

// The calls of a load that nothing disturbs.
std::vector<std::string> CallsOfALoad()
{
    CImport whole(kEveryKind);
    EXPECT_EQ(whole.Load(), 0);
    return Split(whole.fake.TakeCalls(), ", ");
}

TEST(Init, AnyCallOfTheComponentMayFail)
{
    const std::vector<std::string> calls = CallsOfALoad(); // its component is gone by then: on Windows the first counts
    ASSERT_GT(calls.size(), 50u);
    for (std::size_t i = 0; i < calls.size() && !testing::Test::HasFailure(); ++i) {
        const int occurrence = OccurrenceOf(calls, i);
        for (const Fault& fault : {Fault::Result(E_FAIL), Fault::Result(S_FALSE), Fault::ResultAndValue(E_FAIL),
                                   Fault::Standard("broken"), Fault::WithoutText(), Fault::Number()}) {
            SCOPED_TRACE(calls[i] + " number " + std::to_string(occurrence) + ", fault " +
                         std::to_string(static_cast<int>(fault.kind)));
            // What a class object delivers beside a failure reaches nobody.
            if (calls[i] == "CreateInstance" &&
                (fault.kind == Fault::Kind::ResultAndValue || (fault.Throws() && !kCreationMayThrow)))
                continue;
            FailOnce(calls[i], occurrence, fault);
        }
    }
}

TEST(Init, AnExportThatEndsEarlyLeavesWhatWasLoaded)
{
    CTemporaryFolder folder;
    CRecordingSink sink;
    CHostTable table(sink);
    const std::string whole = ReadWholeFile(EXAMPLES_DIR "/plant.kds");
    const std::string path = folder.WriteFile("plant.kds", whole);
    ASSERT_EQ(table.Load(path), 0);
    const std::string expected = table.Lookup("UNIT1.PUMP[2].DRIVE.CURRENT");
    ASSERT_TRUE(expected.starts_with("REAL")) << expected;
    const std::size_t end = whole.rfind("</"); // from here on only blanks and the root's end are missing
    for (std::size_t length = 0; length <= end; length += 1 + length / 64) {
        SCOPED_TRACE(length);
        folder.WriteFile("plant.kds", whole.substr(0, length));
        ASSERT_EQ(table.Load(path), -1);
        ASSERT_EQ(table.TakeMessages(),
                  "KorvaPro Reader <plant.kds> :Init: Impossible to load the exported file .kds 0x8007000D");
        ASSERT_EQ(table.Lookup("UNIT1.PUMP[2].DRIVE.CURRENT"), expected);
    }
}

} // namespace
