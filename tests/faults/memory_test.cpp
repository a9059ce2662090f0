// Every allocation of every operation fails once, and then that one and all behind it.
#include "faults/Allocations.h"
#include "platform/mfc/Exceptions.h"
#include "support/ExportBuilder.h"
#include "support/InProcessTable.h"
#include "support/PlainModel.h"
#include "support/UnitSink.h"
#include "symbkds/frame/PluginExports.h"

#include "platform/com/TaskMemory.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

namespace {

const char kPlant[] = "TYPE Motor STRUCT SPEED INT @4 size 2 'rpm' GRID ARRAY[0..1,0..3] OF REAL @8 size 32 END\n"
                      "DFB Pid IN SP REAL @0 size 4 RAMP Pid @8 OUT OP REAL @4 size 4 END\n"
                      "VAR W1 WORD AT %MW10 block 5 @20 size 2 'a word' customer \"line 1\"\n"
                      "VAR M1 Motor @200 size 40 VAR P1 Pid @800 size 40\n"
                      "VAR W1 WORD AT %MW10 block 5 @20 size 2 'a word' customer \"line 1\"\n";

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

// A symbol table of this program, whose allocations fail here, and a willing sink.
struct CLoadedTable : CInProcessTable
{
    explicit CLoadedTable(std::string_view exportText) : path(WriteExport(folder, exportText))
    {
        EXPECT_EQ(Load(symb), 0);
    }

    LONG Load(CSymbXml& other) { return other.Init(path.c_str(), &willing, TRUE, folder.Path().c_str(), 0); }

    CComScope com;
    CTemporaryFolder folder;
    std::string path;
    CWillingSink willing;
};

long allocationsRefused = 0; // in all attempts so far

// Fails when `attempt`, which is told the ordinal and says whether that allocation was reached, leaves memory behind.
void ForEachAllocation(const std::function<bool(long, Shortage)>& attempt)
{
    // Warms up what is made once: at the first failure, and at the first attempt where nothing fails.
    for (const long ordinal : {1L, std::numeric_limits<long>::max()})
        attempt(ordinal, Shortage::kOnce);
    for (const Shortage shortage : kShortages) {
        bool reached = true;
        long ordinal = 0;
        while (reached && !testing::Test::HasFatalFailure()) {
            ++ordinal;
            SCOPED_TRACE((shortage == Shortage::kOnce ? "once at " : "for good from ") + std::to_string(ordinal));
            const long before = LivingBlocks();
            reached = attempt(ordinal, shortage);
            allocationsRefused += reached;
            ASSERT_EQ(LivingBlocks(), before);
        }
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
    CLoadedTable whole(kPlant); // also warms up what is made once
    const std::string expected = whole.table.Lookup("M1.GRID[1][2]");
    whole.willing.TakeText();
    int refused = 0, thrown = 0;
    ForEachAllocation([&](long ordinal, Shortage shortage) {
        auto another = std::make_unique<CInProcessTable>();
        const Outcome outcome = RunShort(ordinal, shortage, [&] { return whole.Load(another->symb); });
        CheckMessages(outcome, whole.willing.TakeText());
        refused += outcome.result == -1;
        thrown += outcome.thrown;
        EXPECT_TRUE(!outcome.thrown || ordinal <= 3) << "only the arguments may fail to be stored";
        // The table still answers, from what was loaded, and loads.
        another->table.Lookup("W1");
        EXPECT_NE(another->table.Browse(), "E_INVALIDARG");
        EXPECT_EQ(whole.Load(another->symb), 0);
        EXPECT_EQ(another->table.Lookup("M1.GRID[1][2]"), expected);
        whole.willing.TakeText();
        return outcome.happened;
    });
    EXPECT_GT(refused, 0);
    EXPECT_GT(thrown, 0);
}

// Calls `check` with generated projects and paths of each, some of which lead nowhere.
void ForEachProject(const std::function<void(CLoadedTable&, const std::vector<std::string>&)>& check)
{
    const long before = allocationsRefused;
    for (unsigned seed = 1; seed <= 8 && !testing::Test::HasFailure(); ++seed) {
        const CGeneratedProject project(seed);
        SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + project.text);
        CLoadedTable loaded(project.text);
        std::vector<std::string> paths{"", "NOTHING", "[["};
        for (const Place& place : CPlainModel(project).Places(40))
            paths.push_back(place.path);
        check(loaded, paths);
    }
    EXPECT_GT(allocationsRefused, before);
}

TEST(FaultsMemory, LookupsPassTheMemoryException)
{
    ForEachProject([](CLoadedTable& loaded, const std::vector<std::string>& paths) {
        for (std::size_t i = 0; i < 2 * paths.size(); ++i) {
            const std::string name = paths[i / 2] + (i % 2 ? ".3" : "");
            SCOPED_TRACE(name);
            const std::string expected = loaded.table.Lookup(name.c_str());
            const std::string messages = loaded.willing.TakeText();
            ForEachAllocation([&](long ordinal, Shortage shortage) {
                {
                    CHostLookup lookup;
                    lookup.address = "kept";
                    const auto ask = [&] { return lookup.Ask(loaded.table, name.c_str()); };
                    const Outcome outcome = RunShort(ordinal, shortage, ask);
                    loaded.willing.TakeText();
                    EXPECT_EQ(outcome.thrown, outcome.happened);
                    EXPECT_TRUE(!outcome.thrown || (!lookup.descriptor && !lookup.properties && lookup.count == 0 &&
                                                    lookup.address == "kept"));
                }
                EXPECT_EQ(loaded.table.Lookup(name.c_str()), expected);
                EXPECT_EQ(loaded.willing.TakeText(), messages);
                return CFailingAllocation::Happened();
            });
        }
    });
}

std::string Join(const CStringArray& names)
{
    std::string joined;
    for (int i = 0; i < names.GetSize(); ++i)
        joined += std::string(names[i].View()) + ", ";
    return joined;
}

TEST(FaultsMemory, ListingsAsTextsEndEarly)
{
    ForEachProject([](CLoadedTable& loaded, const std::vector<std::string>& paths) {
        for (const std::string& path : paths) {
            SCOPED_TRACE(path);
            const auto list = [&](CStringArray& names) {
                return loaded.symb.BrowseSymbols("", "*", 0, path.c_str(), 0, 0, 0, 1, 1, 2, "AC", &names, nullptr);
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
    });
}

// A page of so many elements (0: all) that begins at `given`.
void ListShort(CLoadedTable& loaded, const HostBrowse& request, DWORD limit, LPWSTR given)
{
    const auto list = [&](CHostListing& listing) {
        listing.point = given;
        return listing.Run(loaded.table, request);
    };
    const auto giveBack = [&](CHostListing& listing) {
        if (listing.point != given)
            CoTaskMemFree(listing.point);
    };
    CHostListing whole(limit);
    const HRESULT result = list(whole);
    giveBack(whole);
    const std::string expected = whole.Names();
    ForEachAllocation([&](long ordinal, Shortage shortage) {
        CHostListing listing(limit), again(limit);
        const Outcome outcome = RunShort(ordinal, shortage, [&] { return list(listing); });
        EXPECT_TRUE(outcome.thrown || outcome.result == (outcome.happened ? E_OUTOFMEMORY : result))
            << ResultName(outcome.result);
        EXPECT_LE(listing.count, listing.capacity);
        EXPECT_TRUE(expected.starts_with(listing.Names())) << listing.Names();
        for (DWORD i = 0; i < listing.count; ++i)
            EXPECT_NE(listing.ItemIdAt(i), nullptr);
        EXPECT_TRUE(!outcome.happened || (listing.point == given && listing.more == 7));
        giveBack(listing);
        EXPECT_EQ(list(again), result);
        EXPECT_EQ(again.Names(), expected);
        giveBack(again);
        return outcome.happened;
    });
}

TEST(FaultsMemory, ListingsAsElementsLeaveAValidArray)
{
    ForEachProject([](CLoadedTable& loaded, const std::vector<std::string>& paths) {
        for (const std::string& path : paths) {
            SCOPED_TRACE(path);
            const HostBrowse request{.path = path.c_str(), .fields = "AC"};
            loaded.table.BrowsePage(request, 0); // leaves type names in upper case
            ListShort(loaded, request, 0, nullptr);
            ListShort(loaded, request, 2, nullptr);
            CHostListing first(2);
            first.Run(loaded.table, request);
            if (first.point)
                ListShort(loaded, request, 2, first.point);
            CoTaskMemFree(first.point);
        }
    });
}

} // namespace
