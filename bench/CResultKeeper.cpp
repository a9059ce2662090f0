#include "bench/CResultKeeper.h"

#include <cstdio>

namespace {

// The counter, or its growth: the counter divided by `base`.
struct Target
{
    const char* what;
    const char* counter;
    const char* base;
    double most;
};

constexpr Target kTargets[] = {
    {"Init of 100,000 variables with dump, beside the bare parse", "Load/100000 dump_ratio", nullptr, 3.0},
    {"the same without dump", "Load/100000 init_ratio", nullptr, 3.0},
    {"Init with dump per variable, 1,000,000 beside 10,000", "Load/1000000 dump_ns", "Load/10000 dump_ns", 2.0},
    {"peak memory of Init, beside the file, 100,000", "Load/100000 peak_ratio", nullptr, 2.6},
    {"peak memory of Init, beside the file, 1,000,000", "Load/1000000 peak_ratio", nullptr, 2.6},
    {"live memory after Init, bytes a variable, 100,000", "Load/100000 live_bytes", nullptr, 400},
    {"lookup, plain, beside its floor, 10,000", "Lookup/10000 plain_ratio", nullptr, 1.3},
    {"lookup, plain, beside its floor, 100,000", "Lookup/100000 plain_ratio", nullptr, 1.3},
    {"the same without the stat on both sides, 10,000", "Lookup/10000 plain_ratio_without_stat", nullptr, 2.0},
    {"the same without the stat on both sides, 100,000", "Lookup/100000 plain_ratio_without_stat", nullptr, 2.0},
    {"path of two members beside plain, 100,000", "Lookup/100000 two_members_ratio", nullptr, 1.5},
    {"unknown name beside plain, 100,000", "Lookup/100000 unknown_ratio", nullptr, 1.0},
    {"lookup, plain, 1,000,000 beside 10,000", "Lookup/1000000 plain_ns", "Lookup/10000 plain_ns", 2.0},
    {"root listing as texts beside its floor, 100,000", "RootListing/100000 texts_ratio", nullptr, 1.3},
    {"root listing as records beside its floor, 100,000", "RootListing/100000 records_ratio", nullptr, 1.5},
    {"array listing as records beside its floor, 100,000", "ArrayListing/100000 records_ratio", nullptr, 1.5},
    {"root in pages of 100 beside unpaged, 100,000", "RootListing/100000 paged_ratio", nullptr, 1.2},
    {"array in pages of 100 beside unpaged, 100,000", "ArrayListing/100000 paged_ratio", nullptr, 1.2},
    {"members in pages of 100 beside unpaged, 40,000", "MemberListing/40000 paged_ratio", nullptr, 10.0},
    {"symbhost list beside 2.5 loads and 2 lookups a row, 100,000", "Tool/100000 list_ratio", nullptr, 1.0},
    {"symbhost check beside that and a load, 100,000", "Tool/100000 check_ratio", nullptr, 1.0},
    {"symbhost diff beside two listings with branches, 100,000", "Tool/100000 diff_ratio", nullptr, 1.3},
    {"the first row of a listing beside the whole listing, 100,000", "Tool/100000 first_ratio", nullptr, 0.6},
    {"memory that diff keeps, bytes a row, 100,000", "Tool/100000 row_bytes", nullptr, 200},
};

} // namespace

void CResultKeeper::ReportRuns(const std::vector<Run>& runs)
{
    benchmark::ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs)
        for (const auto& [name, counter] : run.counters)
            counters[run.run_name.function_name + "/" + run.run_name.args + " " + name] = counter.value;
}

void CResultKeeper::PrintTargets() const
{
    std::printf("\n| What | Target | Measured | |\n|---|---|---|---|\n");
    for (const Target& target : kTargets) {
        const auto found = counters.find(target.counter);
        const auto base = target.base ? counters.find(target.base) : counters.end();
        if (found == counters.end() || (target.base && base == counters.end()))
            continue;
        const double measured = target.base ? found->second / base->second : found->second;
        std::printf("| %s | %.4g | %.3g | %s |\n", target.what, target.most, measured,
                    measured <= target.most ? "met" : "missed");
    }
}
