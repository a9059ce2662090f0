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

// Prints what a walk yields. Answers whether that was all there is.
bool PrintWalk(const CProject& project, const WalkOptions& options, const RowFilter& filter,
               CRecordPrinter<Row>& printer)
{
    CWalk walk(project, options);
    if (!walk.IsFound()) {
        const std::string path = options.path.value_or("");
        Complain(path.empty() ? "an empty PATH is no symbol"
                              : "there is no symbol " + path + "; symbhost why tells more");
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
    WalkOptions walk = options.walk;
    for (const std::string& path : options.paths) {
        walk.path = MendedPath(Utf8FromArgument(path));
        isComplete = PrintWalk(project, walk, filter, printer) && isComplete;
    }
    if (options.paths.empty())
        isComplete = PrintWalk(project, walk, filter, printer);
    printer.Finish();
    return isComplete ? kDone : kIncomplete;
}
