// What does a lookup cost beside the least that it must do?
#include "bench/CSamples.h"
#include "bench/CountedHeap.h"
#include "bench/ProjectGenerator.h"
#include "bench/Projects.h"
#include "platform/com/Bstr.h"
#include "platform/mfc/CString.h"
#include "platform/win32/FileStat.h"
#include "symb/AddressDescriptor.h"
#include "symb/PropertyEntry.h"

#include <benchmark/benchmark.h>

#include <cctype>
#include <cstdlib>
#include <random>
#include <stdexcept>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

namespace {

constexpr int kCalls = 1'000; // in one sample
constexpr int kHotNames = 16;
constexpr double kNanoseconds = 1e9;

// The names that one sample after the other asks for, in random order.
class CNames
{
public:
    CNames(std::vector<std::string> all, std::size_t kept) : names(std::move(all))
    {
        std::mt19937 random(7);
        std::shuffle(names.begin(), names.end(), random);
        names.resize(std::min(names.size(), kept));
    }

    const char* Next()
    {
        at = at + 1 < names.size() ? at + 1 : 0;
        return names[at].c_str();
    }

private:
    std::vector<std::string> names;
    std::size_t at = 0;
};

template <class Wanted>
std::vector<std::string> NamesOf(int variables, Wanted wanted, const std::string& tail)
{
    std::vector<std::string> names;
    for (int number = 0; number < variables; ++number)
        if (wanted(number))
            names.push_back(GeneratedNames::Variable(number) + tail);
    return names;
}

// As a host does it: resolves the name and frees what it was given.
void LookUp(CSymb& table, const char* name, HRESULT expected)
{
    CString address;
    CString comment;
    AddressDescriptor* descriptor = nullptr;
    DWORD count = 0;
    PropertyEntry* properties = nullptr;
    if (table.SearchAndGetFF(0, name, address, comment, &descriptor, &count, &properties) != expected)
        throw std::runtime_error(std::string("unexpected answer for ") + name);
    delete[] properties;
    std::free(descriptor);
}

// The least that a lookup must do: ask for the file's time, find the name
// whatever its case, allocate and free what the host is promised.
class CFloor
{
public:
    explicit CFloor(int variables) : path(ProjectPath(variables))
    {
        for (const std::string& name : NamesOf(
                 variables, [](int) { return true; }, ""))
            found.emplace(UpperCase(name), Record{3, 12, 6, 8});
    }

    void Stat() const
    {
        struct _stat32 status;
        benchmark::DoNotOptimize(_stat32(path.c_str(), &status));
    }

    void LookUp(const char* name) const
    {
        Stat();
        const Record& record = found.at(UpperCase(name));
        void* const descriptor = std::malloc(sizeof(AddressDescriptor));
        auto* const properties = new PropertyEntry[7];
        const UINT lengths[] = {record.typeUnits, record.kindUnits, record.customerUnits, record.addressUnits};
        for (int i = 0; i < 4; ++i) {
            properties[i + 3].value.vt = VT_BSTR;
            properties[i + 3].value.bstrVal = SysAllocStringLen(nullptr, lengths[i]);
        }
        benchmark::DoNotOptimize(descriptor);
        delete[] properties;
        std::free(descriptor);
    }

private:
    struct Record
    {
        UINT typeUnits;
        UINT kindUnits;
        UINT customerUnits;
        UINT addressUnits;
    };

    static std::string UpperCase(std::string name)
    {
        for (char& c : name)
            c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        return name;
    }

    const std::string path;
    std::unordered_map<std::string, Record> found;
};

template <class Call>
void Sample(CSamples& samples, Call&& call)
{
    samples.Measure([&] {
        for (int i = 0; i < kCalls; ++i)
            call();
    });
}

double PerCall(const CSamples& samples)
{
    return samples.Median() / kCalls * kNanoseconds;
}

// One iteration samples every kind of lookup and the floor, one after the other.
void Lookup(benchmark::State& state)
{
    const int variables = static_cast<int>(state.range(0));
    CSymb& table = LoadedProject(variables);
    const CFloor floor(variables);
    const auto all = static_cast<std::size_t>(variables);
    const auto structures = NamesOf(variables, GeneratedNames::IsStructure, ".Drive.Current");
    CNames plain(NamesOf(variables, GeneratedNames::IsPlain, ""), all);
    CNames floorNames = plain; // the same names in the same order
    CNames hot(NamesOf(variables, GeneratedNames::IsPlain, ""), kHotNames);
    CNames oneMember(NamesOf(variables, GeneratedNames::IsStructure, ".Speed"), all);
    CNames twoMembers(structures, all);
    CNames unknown(NamesOf(variables, GeneratedNames::IsPlain, "_NOT"), all);
    CSamples plainTime, hotTime, oneTime, twoTime, unknownTime, floorTime, statTime;
    for (auto _ : state) {
        Sample(plainTime, [&] { LookUp(table, plain.Next(), S_OK); });
        Sample(floorTime, [&] { floor.LookUp(floorNames.Next()); });
        Sample(statTime, [&] { floor.Stat(); });
        Sample(hotTime, [&] { LookUp(table, hot.Next(), S_OK); });
        Sample(oneTime, [&] { LookUp(table, oneMember.Next(), S_OK); });
        Sample(twoTime, [&] { LookUp(table, twoMembers.Next(), S_OK); });
        Sample(unknownTime, [&] { LookUp(table, unknown.Next(), CSymb::kLookupFailed); });
    }
    StartCounting();
    LookUp(table, plain.Next(), S_OK);
    state.counters["allocations"] = static_cast<double>(StopCounting().allocations);
    state.counters["plain_ns"] = PerCall(plainTime);
    state.counters["hot_ns"] = PerCall(hotTime);
    state.counters["floor_ns"] = PerCall(floorTime);
    state.counters["stat_ns"] = PerCall(statTime);
    state.counters["one_member_ns"] = PerCall(oneTime);
    state.counters["two_members_ns"] = PerCall(twoTime);
    state.counters["unknown_ns"] = PerCall(unknownTime);
    state.counters["plain_ratio"] = PerCall(plainTime) / PerCall(floorTime);
    state.counters["plain_ratio_without_stat"] =
        (PerCall(plainTime) - PerCall(statTime)) / (PerCall(floorTime) - PerCall(statTime));
    state.counters["two_members_ratio"] = PerCall(twoTime) / PerCall(plainTime);
    state.counters["unknown_ratio"] = PerCall(unknownTime) / PerCall(plainTime);
}

// Random names by two threads at once on one table, which serialises them; wall time of a call.
void LookupTwoThreads(benchmark::State& state)
{
    const int variables = static_cast<int>(state.range(0));
    CSymb& table = LoadedProject(variables);
    CNames first(NamesOf(variables, GeneratedNames::IsPlain, ""), static_cast<std::size_t>(variables));
    CNames second = first;
    const auto lookUpMany = [&table](CNames& names) {
        for (int i = 0; i < kCalls; ++i)
            LookUp(table, names.Next(), S_OK);
    };
    CSamples one;
    CSamples two;
    for (auto _ : state) {
        one.Measure([&] { lookUpMany(first); }, WallSeconds);
        const auto together = [&] {
            std::thread other([&] { lookUpMany(second); });
            lookUpMany(first);
            other.join();
        };
        two.Measure(together, WallSeconds);
    }
    state.counters["one_thread_ns"] = PerCall(one);
    state.counters["two_threads_ns"] = PerCall(two) / 2;
}

BENCHMARK(Lookup)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK(Lookup)->Arg(1'000'000)->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK(LookupTwoThreads)->Arg(100'000)->Iterations(200)->Unit(benchmark::kMillisecond);

} // namespace
