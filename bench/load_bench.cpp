// How long does a load take, and how much memory, beside the bare parse of the same file?
#include "bench/CSamples.h"
#include "bench/LoadProcess.h"
#include "bench/Projects.h"

#include <benchmark/benchmark.h>

#include <filesystem>

namespace {

constexpr double kNanoseconds = 1e9;

// One iteration is a parse, an Init and an Init with dump, one after the other.
void Load(benchmark::State& state)
{
    const int variables = static_cast<int>(state.range(0));
    const std::string& path = ProjectPath(variables);
    CSamples parse;
    CSamples init;
    CSamples initAndDump;
    LoadResult dumped;
    for (auto _ : state) {
        parse.Add(LoadInNewProcess(LoadKind::Parse, path).seconds);
        init.Add(LoadInNewProcess(LoadKind::Init, path).seconds);
        dumped = LoadInNewProcess(LoadKind::InitAndDump, path);
        initAndDump.Add(dumped.seconds);
        state.SetIterationTime(dumped.seconds);
    }
    const LoadResult counted = LoadInNewProcess(LoadKind::InitCounted, path);
    const double fileBytes = static_cast<double>(std::filesystem::file_size(path));
    const double perVariable = kNanoseconds / variables;
    state.counters["parse_ns"] = parse.Median() * perVariable;
    state.counters["init_ns"] = init.Median() * perVariable;
    state.counters["dump_ns"] = initAndDump.Median() * perVariable;
    state.counters["init_ratio"] = init.Median() / parse.Median();
    state.counters["dump_ratio"] = initAndDump.Median() / parse.Median();
    state.counters["peak_ratio"] = static_cast<double>(dumped.peakBytes) / fileBytes;
    state.counters["file_bytes"] = fileBytes / variables;
    state.counters["live_bytes"] = static_cast<double>(counted.liveBytes) / variables;
    state.counters["allocations"] = static_cast<double>(counted.allocations) / variables;
}

BENCHMARK(Load)->Arg(1'000)->Iterations(9)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Load)->Arg(10'000)->Iterations(9)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Load)->Arg(100'000)->Iterations(9)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Load)->Arg(1'000'000)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
