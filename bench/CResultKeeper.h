#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>

// Reports each benchmark as usual and keeps its counters for the table of targets.
class CResultKeeper : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override;

    // Prints what was measured beside each target, as rows of a Markdown table.
    // Targets whose benchmarks did not run are left out.
    void PrintTargets() const;

private:
    // Counters by "benchmark/variables counter".
    std::map<std::string, double> counters;
};
