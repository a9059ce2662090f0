// Each call that Init makes of the component fails in turn, in every way; and exports that end too early.
#include "import/ImportFixture.h"

#include <gtest/gtest.h>

namespace {

const char kPlant[] = "TYPE Motor STRUCT SPEED INT @4 size 2 'rpm' END\n"
                      "TYPE Table ARRAY[1..2,0..3] OF Motor\n"
                      "DFB Pid IN SP REAL @0 size 4 OUT OP Pid @4 size 4 hidden 1 END\n"
                      "VAR W1 WORD AT %MW10 block 5 @20 size 2 bit 3 access 1 'a word' customer \"line 1\"\n"
                      "VAR M1 Motor @200 size 40\n"
                      "VAR T1 Table @400 size 320\n";

// The calls of one load in their order.
std::vector<std::string> CallsOf(CImport& import)
{
    std::vector<std::string> calls;
    std::string text = import.fake.TakeCalls() + ", ";
    for (std::size_t end; (end = text.find(", ")) != std::string::npos; text.erase(0, end + 2))
        calls.push_back(text.substr(0, end));
    return calls;
}

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
    CImport import(kPlant);
    import.fake.Fail(call, occurrence, fault);
    const LONG result = import.Load();
    const std::string messages = import.table.TakeMessages();
    EXPECT_TRUE(result == 0 || (result == -1 && messages.find("Init") != std::string::npos)) << result << messages;
    const bool thrown = fault.kind != Fault::Kind::kResult && fault.kind != Fault::Kind::kResultAndValue;
    // An exception is always told, and nothing is told in more than a line for each phase it can reach.
    EXPECT_EQ(messages.empty() && thrown, false);
    EXPECT_EQ(import.fake.LivingObjects(), 0);
    // What is there answers, and a second load brings the rest.
    import.table.Lookup("M1.SPEED");
    EXPECT_EQ(import.table.BrowsePage({}, 0).result, 0);
    EXPECT_EQ(import.Load(), 0);
    EXPECT_EQ(import.table.Lookup("M1.SPEED"), "INT +204 size 2 'rpm'");
    EXPECT_EQ(import.fake.LivingObjects(), 0);
}

TEST(Init, AnyCallOfTheComponentMayFail)
{
    CImport whole(kPlant);
    ASSERT_EQ(whole.Load(), 0);
    const std::vector<std::string> calls = CallsOf(whole);
    ASSERT_GT(calls.size(), 50u);
    for (std::size_t i = 0; i < calls.size() && !testing::Test::HasFailure(); ++i) {
        const int occurrence = OccurrenceOf(calls, i);
        for (const Fault& fault : {Fault::Result(E_FAIL), Fault::Result(S_FALSE), Fault::ResultAndValue(E_FAIL),
                                   Fault::Standard("broken"), Fault::WithoutText(), Fault::Number()}) {
            SCOPED_TRACE(calls[i] + " number " + std::to_string(occurrence) + ", fault " +
                         std::to_string(static_cast<int>(fault.kind)));
            // What a class object delivers beside a failure reaches nobody.
            if (calls[i] == "CreateInstance" && fault.kind == Fault::Kind::kResultAndValue)
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
