// Every allocation of every operation fails once, and then that one and all behind it.
#include "faults/Allocations.h"
#include "platform/mfc/Exceptions.h"
#include "support/ExportBuilder.h"
#include "support/HostView.h"
#include "support/UnitSink.h"
#include "symbkds/browse/BrowseRequest.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/frame/PluginExports.h"

#include "platform/com/TaskMemory.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

namespace {

const char kPlant[] = "TYPE Motor STRUCT SPEED INT @4 size 2 'rpm' GRID ARRAY[0..1,0..3] OF REAL @8 size 32 END\n"
                      "TYPE Table ARRAY[1..2,0..3] OF Motor\n"
                      "DFB Pid IN SP REAL @0 size 4 RAMP Pid @8 OUT OP REAL @4 size 4 PRIVATE N INT @8 size 2 END\n"
                      "VAR W1 WORD AT %MW10 block 5 @20 size 2 'a word' customer \"line 1\"\n"
                      "VAR M1 Motor @200 size 40\n"
                      "VAR W1 WORD AT %MW10 block 5 @20 size 2 'a word' customer \"line 1\"\n"
                      "VAR T1 Table @400 size 320\n"
                      "VAR P1 Pid @800 size 40\n"
                      "VAR ROW ARRAY[1..4] OF INT @100 size 8\n";

constexpr Shortage kShortages[] = {Shortage::kOnce, Shortage::kForGood};

// The host's own allocations always succeed.
class CWillingSink : public CUnitSink
{
public:
    void Trace(LONG level, LPCSTR text) override
    {
        const CAllocationsAtWill atWill;
        CUnitSink::Trace(level, text);
    }
};

// What an operation did: a result, or the memory exception.
struct Outcome
{
    bool thrown = false;
    HRESULT result = 0;
    bool happened = false; // the allocation was reached
};

Outcome RunShort(long ordinal, Shortage shortage, const std::function<HRESULT()>& operation)
{
    Outcome outcome;
    try {
        const CFailingAllocation fault(ordinal, shortage);
        outcome.result = operation();
    } catch (const CMemoryException&) {
        outcome.thrown = true;
    }
    outcome.happened = CFailingAllocation::Happened();
    return outcome;
}

// The texts and elements that the requests of one table give, in one text.
struct CAnswers
{
    CString address, comment;
    AddressDescriptor* descriptor = nullptr;
    DWORD propertyCount = 0;
    PropertyEntry* properties = nullptr;

    CAnswers() = default;
    CAnswers(const CAnswers&) = delete;
    CAnswers& operator=(const CAnswers&) = delete;
    ~CAnswers()
    {
        std::free(descriptor);
        delete[] properties;
    }

    HRESULT Ask(CSymb& table, LPCSTR name)
    {
        return table.SearchAndGetFF(0, name, address, comment, &descriptor, &propertyCount, &properties);
    }
    std::string Text() const
    {
        return descriptor ? std::to_string(descriptor->offset) + "/" + std::to_string(descriptor->size) + " " +
                                std::to_string(propertyCount) + " " + std::string(address.View()) + " " +
                                std::string(comment.View())
                          : "nothing";
    }
};

std::string Lookup(CSymb& table, LPCSTR name)
{
    CAnswers answers;
    const HRESULT result = answers.Ask(table, name);
    return ResultName(result) + " " + answers.Text();
}

struct CLoadedTable
{
    CLoadedTable() { EXPECT_EQ(Load(), 0); }

    LONG Load() { return table.Init(path.c_str(), &sink, TRUE, folder.Path().c_str(), 0); }

    CComScope com;
    CTemporaryFolder folder;
    std::string path = WriteExport(folder, kPlant);
    CWillingSink sink;
    CSymbXml table;
};

// Fails when `attempt`, which is told the ordinal and says whether that allocation was reached, leaves memory behind.
void ForEachAllocation(const std::function<bool(long, Shortage)>& attempt)
{
    for (const Shortage shortage : kShortages) {
        bool reached = true;
        long ordinal = 0;
        while (reached && !testing::Test::HasFatalFailure()) {
            ++ordinal;
            SCOPED_TRACE((shortage == Shortage::kOnce ? "once at " : "for good from ") + std::to_string(ordinal));
            const long before = LivingBlocks();
            reached = attempt(ordinal, shortage);
            ASSERT_EQ(LivingBlocks(), before);
        }
        EXPECT_GT(ordinal, 1);
    }
}

TEST(FaultsMemory, NewSymbStoresNothing)
{
    ForEachAllocation([](long ordinal, Shortage shortage) {
        CSymb* table = nullptr;
        const Outcome outcome = RunShort(ordinal, shortage, [&] { return NewSymb(&table); });
        EXPECT_EQ(outcome.thrown, outcome.happened);
        EXPECT_EQ(table == nullptr, outcome.thrown);
        DeleteSymb(table);
        return outcome.happened;
    });
}

// The sink's lines of a load that came to this result. A load whose arguments were not stored has no sink.
void CheckMessages(const Outcome& outcome, const std::string& messages)
{
    if (outcome.thrown)
        EXPECT_EQ(messages, "");
    else if (outcome.result == -1) {
        EXPECT_NE(messages.find(":Init: "), std::string::npos) << messages;
        const std::size_t number = messages.find(".kds 0x"); // of a component that was there
        EXPECT_TRUE(number == std::string::npos || messages.substr(number + 5, 10) == "0x8007000E") << messages;
    } else
        EXPECT_EQ(outcome.result, 0);
}

TEST(FaultsMemory, InitEndsWithAResult)
{
    CLoadedTable whole; // also warms up what is made once
    const std::string expected = Lookup(whole.table, "M1.GRID[1][2]");
    whole.sink.TakeText();
    int refused = 0, thrown = 0;
    ForEachAllocation([&](long ordinal, Shortage shortage) {
        auto table = std::make_unique<CSymbXml>();
        const Outcome outcome = RunShort(ordinal, shortage, [&] {
            return table->Init(whole.path.c_str(), &whole.sink, TRUE, whole.folder.Path().c_str(), 0);
        });
        CheckMessages(outcome, whole.sink.TakeText());
        refused += outcome.result == -1;
        thrown += outcome.thrown;
        EXPECT_TRUE(!outcome.thrown || ordinal <= 3) << "only the arguments may fail to be stored";
        // The table still answers, from what was loaded, and loads.
        Lookup(*table, "W1");
        CStringArray names;
        EXPECT_EQ(table->BrowseSymbols("", "*", 0, "", 0, 0, 0, 1, 1, 0, nullptr, &names, nullptr), S_OK);
        EXPECT_EQ(table->Init(whole.path.c_str(), &whole.sink, TRUE, "", 0), 0);
        EXPECT_EQ(Lookup(*table, "M1.GRID[1][2]"), expected);
        whole.sink.TakeText();
        return outcome.happened;
    });
    EXPECT_GT(refused, 0);
    EXPECT_GT(thrown, 0);
}

TEST(FaultsMemory, LookupsPassTheMemoryException)
{
    for (const char* name : {"W1", "w1.3", "M1.SPEED", "M1.GRID[1][2]", "T1[2][3].GRID[0][1]", "P1.SP", "NOTHING",
                             "M1.NOTHING", "W1.99", "[[", "ROW[2].3"}) {
        SCOPED_TRACE(name);
        CLoadedTable loaded;
        const std::string expected = Lookup(loaded.table, name);
        const std::string messages = loaded.sink.TakeText();
        ForEachAllocation([&](long ordinal, Shortage shortage) {
            CAnswers answers;
            answers.address = "kept";
            const Outcome outcome = RunShort(ordinal, shortage, [&] { return answers.Ask(loaded.table, name); });
            loaded.sink.TakeText();
            if (outcome.thrown) {
                EXPECT_EQ(answers.Text(), "nothing");
                EXPECT_EQ(answers.propertyCount, 0u);
                EXPECT_EQ(answers.address, "kept");
            } else {
                EXPECT_FALSE(outcome.happened);
            }
            EXPECT_EQ(Lookup(loaded.table, name), expected);
            EXPECT_EQ(loaded.sink.TakeText(), messages);
            return outcome.happened;
        });
    }
}

std::string Join(const CStringArray& names)
{
    std::string joined;
    for (int i = 0; i < names.GetSize(); ++i)
        joined += std::string(names[i].View()) + ", ";
    return joined;
}

struct Listing
{
    const char* path;
    const char* fields;
    DWORD limit;
    const char16_t* resumeAt;
};
constexpr Listing kListings[] = {{"", "", 0, nullptr},        {"", "AC", 2, nullptr},
                                 {"M1", "AC", 0, nullptr},    {"T1", "A", 3, nullptr},
                                 {"T1", "", 3, u"T1[1]"},     {"P1", "AC", 0, nullptr},
                                 {"ROW", "A", 2, u"ROW[2]"},  {"T1[2][1].GRID", "", 0, nullptr},
                                 {"NOTHING", "", 0, nullptr}, {"T1[2][1].GRID[0]", "AC", 0, nullptr},
                                 {"", "", 2, u"M1"}};

TEST(FaultsMemory, ListingsAsTextsEndEarly)
{
    CLoadedTable loaded;
    for (const Listing& listing : kListings) {
        SCOPED_TRACE(listing.path);
        const auto list = [&](CStringArray& names) {
            return loaded.table.BrowseSymbols("", "*", 0, listing.path, 0, 0, 0, 1, 1,
                                              static_cast<LONG>(std::strlen(listing.fields)), listing.fields, &names,
                                              nullptr);
        };
        CStringArray warm, whole;
        list(warm);
        const HRESULT result = list(whole);
        const std::string expected = Join(whole);
        ForEachAllocation([&](long ordinal, Shortage shortage) {
            CStringArray names, again;
            const Outcome outcome = RunShort(ordinal, shortage, [&] { return list(names); });
            EXPECT_FALSE(outcome.thrown);
            EXPECT_EQ(outcome.result, outcome.happened ? S_OK : result);
            EXPECT_TRUE(expected.starts_with(Join(names))) << Join(names);
            EXPECT_EQ(list(again), result);
            EXPECT_EQ(Join(again), expected);
            return outcome.happened;
        });
    }
}

// The array of one property browse, given back at the end.
struct CElements
{
    explicit CElements(const Listing& request)
        : listing(request), elements(static_cast<BrowseElement*>(
                                request.limit ? CoTaskMemAlloc(request.limit * sizeof(BrowseElement)) : nullptr)),
          capacity(request.limit)
    {}
    CElements(const CElements&) = delete;
    CElements& operator=(const CElements&) = delete;
    ~CElements()
    {
        for (DWORD i = 0; i < count; ++i) {
            CoTaskMemFree(elements[i].name);
            CoTaskMemFree(elements[i].itemId);
        }
        CoTaskMemFree(elements);
        if (point != given)
            CoTaskMemFree(point);
    }

    HRESULT List(CSymb& table)
    {
        return table.BrowseSymbolsWithProperties(
            nullptr, nullptr, 0, listing.path, 0, 0, 0, 1, 1, static_cast<LONG>(std::strlen(listing.fields)),
            listing.fields, nullptr, &point, listing.limit, 0, 0, 0, 0, &more, &count, &elements, &capacity, nullptr);
    }
    std::string Text() const
    {
        std::string text;
        for (DWORD i = 0; i < count; ++i)
            text += Narrow(elements[i].name) + "=" + Narrow(elements[i].itemId) + ", ";
        return text;
    }

    const Listing& listing;
    BrowseElement* elements;
    DWORD capacity, count = 0, more = 0;
    LPWSTR given = const_cast<LPWSTR>(reinterpret_cast<LPCWSTR>(listing.resumeAt));
    LPWSTR point = given;
};

TEST(FaultsMemory, ListingsAsElementsLeaveAValidArray)
{
    CLoadedTable loaded;
    for (const Listing& listing : kListings) {
        SCOPED_TRACE(listing.path);
        CElements(listing).List(loaded.table);
        CElements whole(listing);
        const HRESULT result = whole.List(loaded.table);
        const std::string expected = whole.Text();
        ForEachAllocation([&](long ordinal, Shortage shortage) {
            CElements elements(listing), again(listing);
            const Outcome outcome = RunShort(ordinal, shortage, [&] { return elements.List(loaded.table); });
            EXPECT_TRUE(outcome.thrown || outcome.result == (outcome.happened ? E_OUTOFMEMORY : result))
                << ResultName(outcome.result);
            EXPECT_LE(elements.count, elements.capacity);
            EXPECT_TRUE(expected.starts_with(elements.Text())) << elements.Text();
            if (outcome.happened) {
                EXPECT_EQ(elements.point, elements.given);
                EXPECT_EQ(elements.more, 0u);
            }
            EXPECT_EQ(again.List(loaded.table), result);
            EXPECT_EQ(again.Text(), expected);
            return outcome.happened;
        });
    }
}

} // namespace
