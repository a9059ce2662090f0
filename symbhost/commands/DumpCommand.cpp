#include "symbhost/commands/DumpCommand.h"

#include "platform/win32/Clock.h"
#include "symbhost/Failure.h"
#include "symbhost/commands/DumpFile.h"

int DumpCommand(const LoadOptions& options, COutput& output)
{
    const DWORD start = GetTickCount();
    const CLoadedExport loaded(options);
    const DWORD end = GetTickCount();
    const std::string path = DumpPath(options.dumpDir.value_or(""), options.exportPath);
    if (const std::string problem = DumpProblem(path, start, end); !problem.empty()) {
        Complain(problem);
        return kIncomplete;
    }
    output.Line(path); // as it is: a script opens it
    output.Flush();
    return kDone;
}
