// What do the commands of symbhost take beside the loads and lookups that they are made of?
#include "bench/CSamples.h"
#include "bench/LoadProcess.h"
#include "bench/Projects.h"
#include "platform/mfc/CString.h"
#include "symb/AddressDescriptor.h"
#include "symb/PropertyEntry.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr int kNothingFound = 1; // an exit status: something differs, or is wrong
constexpr double kNanoseconds = 1e9;

std::string Symbhost()
{
    return "'" + std::filesystem::read_symlink("/proc/self/exe").replace_filename("symbhost").string() + "' ";
}

// Runs a script of the shell, which prints numbers to `report`.
std::ifstream RunScript(const std::string& script, const std::string& report)
{
    std::ofstream(report + ".sh") << script;
    if (std::system(("bash '" + report + ".sh' > '" + report + "'").c_str()) != 0)
        throw std::runtime_error("a command failed: " + script);
    return std::ifstream(report);
}

// Processor time of a command, seconds.
double SecondsOf(const std::string& command, const std::string& report)
{
    std::ifstream numbers =
        RunScript("TIMEFORMAT='%U %S'\n{ time " + Symbhost() + command + " 2>'" + report + ".errors'; } 2>&1\n" +
                      "exit $((PIPESTATUS > " + std::to_string(kNothingFound) + "))\n",
                  report);
    double user = 0;
    double system = 0;
    if (!(numbers >> user >> system))
        throw std::runtime_error("no time for " + command);
    return user + system;
}

// The most memory that a command has at a time, bytes.
double PeakOf(const std::string& command, const std::string& report)
{
    std::ifstream numbers = RunScript(Symbhost() + command + " >/dev/null 2>&1 &\n" +
                                          "while peak=$(grep VmHWM /proc/$!/status); do last=$peak; sleep 0.01; done\n"
                                          "set -- $last; echo $2\n",
                                      report);
    double kilobytes = 0;
    if (!(numbers >> kilobytes))
        throw std::runtime_error("no memory for " + command);
    return kilobytes * 1024;
}

// The names that `list` prints; none of the generated ones needs quotes.
std::vector<std::string> ListedNames(const std::string& options, const std::string& report)
{
    SecondsOf("list " + options + " --csv > '" + report + ".csv'", report);
    std::ifstream lines(report + ".csv");
    std::vector<std::string> names;
    for (std::string line; std::getline(lines, line);)
        names.push_back(line.substr(0, line.find(',')));
    names.erase(names.begin()); // the titles
    return names;
}

// Looks every name up once and frees what the host is given.
void LookUpAll(CSymb& table, const std::vector<std::string>& names)
{
    for (const std::string& name : names) {
        CString address;
        CString comment;
        AddressDescriptor* descriptor = nullptr;
        DWORD count = 0;
        PropertyEntry* properties = nullptr;
        benchmark::DoNotOptimize(
            table.SearchAndGetFF(0, name.c_str(), address, comment, &descriptor, &count, &properties));
        delete[] properties;
        std::free(descriptor);
    }
}

// One iteration runs every command, the load and the lookups, one after the other.
void Tool(benchmark::State& state)
{
    const int variables = static_cast<int>(state.range(0));
    const std::string path = ProjectPath(variables);
    const std::string report = path + ".tool";
    const std::string quoted = "'" + path + "'";
    const std::vector<std::string> names = ListedNames(quoted, report);
    const auto allRows = static_cast<double>(ListedNames(quoted + " --all", report).size());
    CSymb& table = LoadedProject(variables);
    CSamples load, lookups, list, listAll, first, check, diff;
    for (auto _ : state) {
        load.Add(LoadInNewProcess(LoadKind::Init, path).seconds);
        lookups.Measure([&] { LookUpAll(table, names); });
        list.Add(SecondsOf("list " + quoted + " >/dev/null", report));
        listAll.Add(SecondsOf("list --all " + quoted + " >/dev/null", report));
        first.Add(SecondsOf("list " + quoted + " | head -n 2 >/dev/null", report));
        check.Add(SecondsOf("check " + quoted + " >/dev/null", report));
        diff.Add(SecondsOf("diff " + quoted + " " + quoted + " >/dev/null", report));
    }
    const double listPeak = PeakOf("list --all " + quoted, report);
    const double diffPeak = PeakOf("diff " + quoted + " " + quoted, report);
    const double allowance = 2.5 * load.Median() + 2 * lookups.Median();
    const auto rows = static_cast<double>(names.size());
    state.counters["rows"] = rows;
    state.counters["load_s"] = load.Median();
    state.counters["lookup_ns"] = lookups.Median() / rows * kNanoseconds;
    state.counters["list_s"] = list.Median();
    state.counters["check_s"] = check.Median();
    state.counters["diff_s"] = diff.Median();
    state.counters["list_ratio"] = list.Median() / allowance;
    state.counters["check_ratio"] = check.Median() / (allowance + load.Median());
    state.counters["diff_ratio"] = diff.Median() / (2 * listAll.Median());
    state.counters["first_ratio"] = first.Median() / list.Median();
    state.counters["row_bytes"] = (diffPeak - listPeak) / allRows;
}

BENCHMARK(Tool)->Arg(100'000)->Iterations(5)->Unit(benchmark::kMillisecond);

} // namespace
