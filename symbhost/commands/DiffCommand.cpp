#include "symbhost/commands/DiffCommand.h"

#include "symbhost/Failure.h"
#include "symbhost/Text.h"
#include "symbhost/commands/CDiffPrinter.h"
#include "symbhost/commands/NamesAsked.h"
#include "symbhost/commands/WalkCutNotice.h"
#include "symbhost/exports/CRowIndex.h"
#include "symbhost/exports/CWalk.h"
#include "symbhost/exports/UpperName.h"

#include <iostream>
#include <unordered_map>

namespace {

// Which symbols are compared, and what a list of names says besides.
class CWantedSymbols
{
public:
    explicit CWantedSymbols(const DiffOptions& options) : filter(options.filter)
    {
        if (filter.name)
            filter.name = Utf8FromArgument(*filter.name);
        if (options.names.file.empty())
            return;
        CNameList list(options.names, std::cin);
        columns = ColumnsIn(list);
        names.emplace();
        while (std::optional<GivenName> name = list.Next()) {
            if (name->fault.empty()) {
                names->insert_or_assign(UpperName(name->name), std::move(*name));
                continue;
            }
            isWhole = false;
            Complain("not compared: " + Printable(name->name) + ": " + std::string(name->fault));
        }
    }

    // Whether every line of the list could be a name.
    bool IsWhole() const { return isWhole; }

    bool Accepts(const Row& row) const { return filter.Accepts(row) && (!names || NameOf(row)); }
    const std::vector<Column>& MoreColumns() const { return columns; }
    std::vector<Cell> MoreCells(const Row& row) const
    {
        std::vector<Cell> cells;
        if (const GivenName* name = names ? NameOf(row) : nullptr)
            AppendCellsIn(*name, cells);
        return cells;
    }

private:
    const GivenName* NameOf(const Row& row) const
    {
        const auto found = names->find(UpperName(std::string(row.name)));
        return found == names->end() ? nullptr : &found->second;
    }

    RowFilter filter;
    std::optional<std::unordered_map<std::string, GivenName>> names; // by upper-case name; none: all symbols
    std::vector<Column> columns;
    bool isWhole = true;
};

// Hands every wanted symbol of an export, branches too, to `take`. Answers whether all symbols were looked at.
template <class Take>
bool ForEachRow(LoadOptions load, const std::string& path, const CWantedSymbols& wanted, Take&& take)
{
    load.exportPath = path;
    CLoadedExport loaded(load);
    const CProject project(loaded);
    WalkOptions everything;
    everything.branches = true;
    everything.most = WalkOptions::kMostSymbols;
    CWalk walk(project, everything);
    while (walk.Next())
        if (wanted.Accepts(walk.Current()))
            take(walk.Current());
    ComplainOfCut(walk.Cut());
    return !walk.Cut().isStopped;
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
    const CWantedSymbols symbols(options);
    const unsigned wanted = WantedChanges(options.only);
    // One export at a time is in memory; of the later one the rows are kept.
    CRowStore rows;
    const bool isAfterWhole = ForEachRow(load, options.after, symbols, [&rows](const Row& row) { rows.Add(row); });
    // What is missing in an export that was not looked at as a whole may be behind the end.
    const unsigned removed = isAfterWhole ? unsigned{kRemoved} : 0;
    CRowIndex index(rows);
    CDiffPrinter printer(output, options.form, symbols.MoreColumns());
    const bool isBeforeWhole = ForEachRow(load, options.before, symbols, [&](const Row& before) {
        const std::optional<std::size_t> found = index.Find(before.name);
        const Row after = found ? rows.At(*found) : Row();
        const unsigned changes = found ? ChangesBetween(before, after) : removed;
        if ((changes & wanted) != 0)
            printer.Add(&before, found ? &after : nullptr, changes, symbols.MoreCells(before));
    });
    for (std::size_t row = 0; isBeforeWhole && row < rows.Count(); ++row)
        if ((wanted & kAdded) != 0 && !index.WasFound(row)) {
            const Row added = rows.At(row);
            printer.Add(nullptr, &added, kAdded, symbols.MoreCells(added));
        }
    printer.Finish();
    const bool isAll = symbols.IsWhole() && isBeforeWhole && isAfterWhole;
    return printer.Count() == 0 && isAll ? kDone : kIncomplete;
}
