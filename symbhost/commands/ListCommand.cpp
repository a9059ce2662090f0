#include "symbhost/commands/ListCommand.h"

#include "symbhost/Failure.h"
#include "symbhost/Text.h"
#include "symbhost/commands/WalkCutNotice.h"
#include "symbhost/exports/CSymbolPath.h"
#include "symbhost/output/CRecordPrinter.h"

namespace {

void ToUtf8(std::optional<std::string>& argument)
{
    if (argument)
        argument = Utf8FromArgument(*argument);
}

// Prints what `walk` yields. Answers whether that was all there is.
bool PrintWalk(CWalk& walk, const std::string& path, const RowFilter& filter, CRecordPrinter<Row>& printer)
{
    if (!walk.IsFound()) {
        Complain("there is no symbol " + path + "; symbhost why tells more");
        return false;
    }
    while (walk.Next())
        if (filter.Accepts(walk.Current()))
            printer.Add(walk.Current());
    ComplainOfCut(walk.Cut());
    return walk.Cut().count == 0;
}

} // namespace

int ListCommand(CLoadedExport& loaded, const ListOptions& options, COutput& output)
{
    RowFilter filter = options.filter;
    for (std::optional<std::string>* text : {&filter.name, &filter.type, &filter.comment, &filter.customer})
        ToUtf8(*text);
    const CProject project(loaded);
    CRecordPrinter<Row> printer(output, options.form, RowFields());
    bool isComplete = true;
    for (const std::string& path : options.paths.empty() ? std::vector<std::string>{""} : options.paths) {
        WalkOptions below = options.walk;
        below.path = MendedPath(Utf8FromArgument(path));
        CWalk walk(project, below);
        isComplete = PrintWalk(walk, below.path, filter, printer) && isComplete;
    }
    printer.Finish();
    return isComplete ? kDone : kIncomplete;
}
