#include "symbhost/commands/DumpCommand.h"

#include "symbhost/Failure.h"
#include "symbhost/plugin/DumpFile.h"

int DumpCommand(const LoadOptions& options, COutput& output)
{
    output.Line(DumpPath(options.dumpDir.value_or(""), options.exportPath)); // as it is: a script opens it
    output.Flush();
    return kDone;
}
