#include "symbhost/commands/MapCommand.h"

#include "symbhost/Failure.h"
#include "symbhost/commands/MapPicture.h"
#include "symbhost/commands/WalkCutNotice.h"
#include "symbhost/exports/CWalk.h"
#include "symbhost/output/CRecordPrinter.h"

namespace {

struct MapRow
{
    const MemoryRun& run;
    std::vector<std::string> names;
};

Cell Number(std::uint64_t number)
{
    return static_cast<std::int64_t>(number);
}

constexpr std::string_view StateText(MemoryRun::State state)
{
    constexpr std::string_view kTexts[] = {"used", "free", "overlap"};
    return kTexts[static_cast<std::size_t>(state)];
}

// clang-format off
constexpr Field<MapRow> kFields[] = {
    {"block", "BLOCK", 0, true, [](const MapRow& row) { return Number(row.run.block); }},
    {"from", "FROM", 1, true, [](const MapRow& row) { return Number(row.run.from); }},
    {"to", "TO", 2, true, [](const MapRow& row) { return Number(row.run.to); }},
    {"bytes", "BYTES", 3, true, [](const MapRow& row) { return Number(row.run.Bytes()); }},
    {"symbols", "SYMBOLS", 5, false, [](const MapRow& row) -> Cell { return std::span<const std::string>(row.names); }},
    {"state", "STATE", 4, false, [](const MapRow& row) -> Cell { return StateText(row.run.state); }},
};
// clang-format on

void PrintRows(MappedProject& project, OutputForm form, COutput& output)
{
    CRecordPrinter<MapRow> printer(output, form, kFields);
    std::size_t cutRuns = 0;
    for (project.memory.Rewind(); project.memory.Next();) {
        MapRow row{project.memory.Current(), {}};
        for (const std::size_t number : row.run.variables)
            row.names.emplace_back(project.variables.At(number).name);
        printer.Add(row);
        cutRuns += row.run.isCut ? 1 : 0;
    }
    printer.Finish();
    if (cutRuns != 0)
        Complain(std::to_string(cutRuns) + " rows name only the first " + std::to_string(MemoryRun::kMostVariables) +
                 " of their symbols");
}

} // namespace

int MapCommand(CLoadedExport& loaded, const MapOptions& options, COutput& output)
{
    const CProject project(loaded);
    WalkOptions variables;
    variables.branches = true;
    variables.below = false;
    CWalk walk(project, variables);
    MappedProject mapped;
    while (walk.Next()) {
        const std::optional<Place> place = PlaceOf(walk.Current());
        if (!place || (options.block && place->block != *options.block))
            continue;
        mapped.memory.Add(*place);
        mapped.variables.Add(walk.Current());
    }
    ComplainOfCut(walk.Cut());
    if (options.block && mapped.variables.Count() == 0)
        Complain("no variable lies in block " + std::to_string(*options.block));
    if (!options.svgPath.empty())
        DrawMap(mapped, project.File(), options.svgPath, loaded.Path());
    if (options.svgPath.empty() || options.form != OutputForm::Table)
        PrintRows(mapped, options.form, output);
    return kDone;
}
