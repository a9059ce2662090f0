#include "symbhost/commands/WhyCommand.h"

#include "symbhost/Failure.h"
#include "symbhost/commands/NamesAsked.h"
#include "symbhost/output/CRecordPrinter.h"

#include <iostream>

namespace {

struct NameExplained
{
    std::string_view name;
    const Explanation& explanation;
};

constexpr Field<NameExplained> kFields[] = {
    {"name", "NAME", 0, false, [](const NameExplained& row) -> Cell { return row.name; }},
    {"served", "SERVED", 1, false,
     [](const NameExplained& row) -> Cell { return row.explanation.reason == Reason::None; }},
    {"reason", "REASON", 2, false,
     [](const NameExplained& row) -> Cell { return std::string_view(ReasonCode(row.explanation.reason)); }},
    {"text", "TEXT", 3, false, [](const NameExplained& row) -> Cell { return std::string_view(row.explanation.text); }},
};

} // namespace

int WhyCommand(CLoadedExport& loaded, const WhyOptions& options, COutput& output)
{
    CNameList names(options.names, std::cin);
    const CProject project(loaded);
    CExplainer explainer(project);
    const bool showsMore = options.form == OutputForm::Csv;
    CRecordPrinter<NameExplained> printer(output, options.form, kFields,
                                          showsMore ? ColumnsIn(names) : std::vector<Column>());
    int status = kDone;
    std::vector<Cell> more;
    while (const std::optional<GivenName> name = names.Next()) {
        const LookupAnswer answer = LookUpGiven(loaded.Table(), loaded.Sink(), *name);
        const Explanation explanation = ExplainGiven(explainer, *name, answer);
        status = explanation.reason == Reason::None ? status : kIncomplete;
        more.clear();
        if (showsMore)
            AppendCellsIn(*name, more);
        printer.Add({name->name, explanation}, more);
        if (names.IsInteractive() && output.IsTerminal())
            printer.Flush();
    }
    printer.Finish();
    return status;
}
