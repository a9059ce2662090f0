#include "symbhost/commands/DiffCommand.h"

#include "symbhost/Failure.h"
#include "symbhost/Text.h"
#include "symbhost/commands/CDiffPrinter.h"
#include "symbhost/commands/WalkCutNotice.h"
#include "symbhost/exports/CRowIndex.h"
#include "symbhost/exports/CWalk.h"

namespace {

// Hands every wanted symbol of an export, branches too, to `take`.
template <class Take>
void ForEachRow(LoadOptions load, const std::string& path, const RowFilter& filter, Take&& take)
{
    load.exportPath = path;
    CLoadedExport loaded(load);
    const CProject project(loaded);
    WalkOptions everything;
    everything.branches = true;
    CWalk walk(project, everything);
    while (walk.Next())
        if (filter.Accepts(walk.Current()))
            take(walk.Current());
    ComplainOfCut(walk.Cut());
}

unsigned WantedChanges(const std::vector<std::string>& words)
{
    unsigned wanted = words.empty() ? ~0U : 0U;
    for (const std::string& word : words)
        wanted |= ChangeOf(word).value_or(Change{});
    return wanted;
}

} // namespace

std::string ChangeProblem(const std::string& word)
{
    if (ChangeOf(word))
        return {};
    std::string known;
    for (const std::string& each : ChangeWords(~0U))
        known += (known.empty() ? "" : ", ") + each;
    return word + " is no change; the changes are " + known;
}

int DiffCommand(const LoadOptions& load, const DiffOptions& options, COutput& output)
{
    RowFilter filter = options.filter;
    if (filter.name)
        filter.name = Utf8FromArgument(*filter.name);
    const unsigned wanted = WantedChanges(options.only);
    // One export at a time is in memory; of the later one the rows are kept.
    CRowStore rows;
    ForEachRow(load, options.after, filter, [&rows](const Row& row) { rows.Add(row); });
    CRowIndex index(rows);
    CDiffPrinter printer(output, options.form);
    ForEachRow(load, options.before, filter, [&](const Row& before) {
        const std::optional<std::size_t> found = index.Find(before.name);
        const Row after = found ? rows.At(*found) : Row();
        const unsigned changes = found ? ChangesBetween(before, after) : unsigned{kRemoved};
        if ((changes & wanted) != 0)
            printer.Add(&before, found ? &after : nullptr, changes);
    });
    for (std::size_t row = 0; row < rows.Count(); ++row)
        if ((wanted & kAdded) != 0 && !index.WasFound(row)) {
            const Row added = rows.At(row);
            printer.Add(nullptr, &added, kAdded);
        }
    printer.Finish();
    return printer.Count() == 0 ? kDone : kIncomplete;
}
