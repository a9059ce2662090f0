// What does a listing cost beside the least that it must do, and what do pages cost beside one listing?
#include "bench/CSamples.h"
#include "bench/CountedHeap.h"
#include "bench/ProjectGenerator.h"
#include "bench/Projects.h"
#include "platform/com/TaskMemory.h"
#include "platform/mfc/CArray.h"
#include "platform/mfc/CMap.h"
#include "platform/win32/Clock.h"
#include "platform/win32/CodePage.h"
#include "symb/BrowseElement.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr DWORD kPage = 100;
constexpr double kNanoseconds = 1e9;

std::u16string Widen(const std::string& ascii)
{
    return {ascii.begin(), ascii.end()};
}

// What is listed: the root of a project, the elements of its long array, or the members of a wide structure.
struct Listed
{
    CSymb& table;
    const char* path;             // empty: the root
    std::vector<std::string> all; // the names of all entries
};

Listed Root(int variables)
{
    Listed listed{LoadedProject(variables), "", {}};
    for (int number = 0; number < variables; ++number)
        listed.all.push_back(GeneratedNames::Variable(number));
    listed.all.emplace_back(GeneratedNames::kLongArray);
    return listed;
}

Listed LongArray()
{
    Listed listed{LoadedProject(1'000), GeneratedNames::kLongArray, {}};
    for (int index = 0; index < GeneratedNames::kLongArrayElements; ++index)
        listed.all.push_back(std::string(GeneratedNames::kLongArray) + "[" + std::to_string(index) + "]");
    return listed;
}

Listed WideStructure()
{
    Listed listed{LoadedWideProject(), GeneratedNames::kWide, {}};
    for (int number = 0; number < GeneratedNames::kWideMembers; ++number)
        listed.all.push_back(GeneratedNames::Member(number));
    return listed;
}

// A host's array of elements, which it frees after each page.
class CElements
{
public:
    explicit CElements(DWORD room)
        : capacity(room),
          elements(static_cast<BrowseElement*>(room ? CoTaskMemAlloc(room * sizeof(BrowseElement)) : nullptr))
    {}
    CElements(const CElements&) = delete;
    CElements& operator=(const CElements&) = delete;
    ~CElements()
    {
        FreeTexts();
        CoTaskMemFree(elements);
    }

    void FreeTexts()
    {
        for (; count > 0; --count) {
            CoTaskMemFree(elements[count - 1].name);
            CoTaskMemFree(elements[count - 1].itemId);
        }
    }

    DWORD count = 0;
    DWORD capacity;
    BrowseElement* elements;
};

// Lists records; returns whether there are more.
bool ListRecords(const Listed& listed, CElements& page, DWORD most, LPWSTR* continuation)
{
    const std::u16string parentId = *listed.path ? u"!" + Widen(listed.path) : u"";
    DWORD more = 0;
    const HRESULT result = listed.table.BrowseSymbolsWithProperties(
        "", "", 0, listed.path, 0, 0, FALSE, TRUE, TRUE, 0, nullptr, parentId.c_str(), continuation, most, 0, 0, 0, 0,
        &more, &page.count, &page.elements, &page.capacity, nullptr);
    if (result != S_OK)
        throw std::runtime_error("the listing failed");
    return more != 0;
}

void ListUnpaged(const Listed& listed)
{
    CElements all(0);
    ListRecords(listed, all, 0, nullptr);
    if (all.count != listed.all.size())
        throw std::runtime_error("the listing is not complete");
}

void ListInPages(const Listed& listed)
{
    CElements page(kPage);
    LPWSTR continuation = nullptr;
    std::size_t count = 0;
    for (bool more = true; more;) {
        page.FreeTexts();
        const LPWSTR resumeAt = continuation;
        more = ListRecords(listed, page, kPage, &continuation);
        if (continuation != resumeAt)
            CoTaskMemFree(resumeAt);
        count += page.count;
    }
    CoTaskMemFree(continuation);
    if (count != listed.all.size())
        throw std::runtime_error("the pages are not complete");
}

void ListTexts(const Listed& listed)
{
    CStringArray names;
    const HRESULT result =
        listed.table.BrowseSymbols("", "", 0, listed.path, 0, 0, FALSE, TRUE, FALSE, 0, nullptr, &names, nullptr);
    if (result != S_OK || names.IsEmpty())
        throw std::runtime_error("the listing failed");
}

// The entries as a dictionary keeps them: a map in order, each record and each text a block of its own.
class CDictionary
{
public:
    struct Record
    {
        CString name;
        bool plain;
    };
    using Records = CMap<CString, LPCSTR, Record*, Record*>;

    explicit CDictionary(const Listed& listed)
    {
        for (std::size_t i = 0; i < listed.all.size(); ++i) {
            const bool plain = *listed.path || GeneratedNames::IsPlain(static_cast<int>(i));
            owned.push_back(std::make_unique<Record>(Record{listed.all[i].c_str(), plain}));
            records.SetAt(listed.all[i].c_str(), owned.back().get());
        }
    }

    template <class Visit>
    void Enumerate(Visit visit) const
    {
        for (const auto* pair = records.PGetFirstAssoc(); pair; pair = records.PGetNextAssoc(pair))
            visit(*pair->value);
    }

private:
    std::vector<std::unique_ptr<Record>> owned;
    Records records;
};

// The least for texts: enumerate, yield before each entry, append those that are listed.
void RunTextFloor(const CDictionary& dictionary)
{
    CStringArray names;
    dictionary.Enumerate([&names](const CDictionary::Record& record) {
        Sleep(0);
        if (record.plain)
            names.Add(record.name);
    });
    benchmark::DoNotOptimize(names.GetSize());
}

LPWSTR MakeTaskText(const CString& text)
{
    const int units = text.GetLength() + 1;
    const auto wide = static_cast<LPWSTR>(CoTaskMemAlloc(static_cast<std::size_t>(units) * sizeof(WCHAR)));
    MultiByteToWideChar(CP_THREAD_ACP, 0, text, units, wide, units);
    return wide;
}

// The least for records: enumerate, allocate and fill the elements; below a path entries are yielded for too.
void RunRecordFloor(const CDictionary& dictionary, const Listed& listed)
{
    CElements all(static_cast<DWORD>(listed.all.size()));
    dictionary.Enumerate([&](const CDictionary::Record& record) {
        if (*listed.path)
            Sleep(0);
        BrowseElement& element = all.elements[all.count++];
        element = {};
        element.name = MakeTaskText(record.name);
        element.itemId = MakeTaskText(record.name);
    });
}

// One iteration runs every kind of listing and its floor, one after the other.
void Compare(benchmark::State& state, const Listed& listed)
{
    const CDictionary dictionary(listed);
    CSamples texts, textFloorTime, unpaged, recordFloorTime, paged;
    for (auto _ : state) {
        texts.Measure([&] { ListTexts(listed); });
        textFloorTime.Measure([&] { RunTextFloor(dictionary); });
        unpaged.Measure([&] { ListUnpaged(listed); });
        recordFloorTime.Measure([&] { RunRecordFloor(dictionary, listed); });
        paged.Measure([&] { ListInPages(listed); });
    }
    StartCounting();
    ListUnpaged(listed);
    const double entries = static_cast<double>(listed.all.size());
    state.counters["record_allocations"] = static_cast<double>(StopCounting().allocations) / entries;
    const double perEntry = kNanoseconds / entries;
    state.counters["texts_ns"] = texts.Median() * perEntry;
    state.counters["records_ns"] = unpaged.Median() * perEntry;
    state.counters["paged_ns"] = paged.Median() * perEntry;
    state.counters["texts_ratio"] = texts.Median() / textFloorTime.Median();
    state.counters["records_ratio"] = unpaged.Median() / recordFloorTime.Median();
    state.counters["paged_ratio"] = paged.Median() / unpaged.Median();
}

void RootListing(benchmark::State& state)
{
    Compare(state, Root(static_cast<int>(state.range(0))));
}

void ArrayListing(benchmark::State& state)
{
    Compare(state, LongArray());
}

void MemberListing(benchmark::State& state)
{
    Compare(state, WideStructure());
}

BENCHMARK(RootListing)->Arg(1'000)->Arg(10'000)->Iterations(31)->Unit(benchmark::kMillisecond);
BENCHMARK(RootListing)->Arg(100'000)->Iterations(15)->Unit(benchmark::kMillisecond);
BENCHMARK(RootListing)->Arg(1'000'000)->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(ArrayListing)->Arg(100'000)->Iterations(15)->Unit(benchmark::kMillisecond);
BENCHMARK(MemberListing)->Arg(GeneratedNames::kWideMembers)->Iterations(5)->Unit(benchmark::kMillisecond);

} // namespace
