// Measures the library beside floors that are measured in the same run; see docs/performance.md.
#include "bench/CResultKeeper.h"
#include "bench/LoadProcess.h"

int main(int argc, char** argv)
{
    if (RunLoadProcess(argc - 1, argv + 1))
        return 0;
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    CResultKeeper results;
    benchmark::RunSpecifiedBenchmarks(&results);
    results.PrintTargets();
    return 0;
}
