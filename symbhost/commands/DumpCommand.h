#pragma once

#include "symbhost/output/COutput.h"
#include "symbhost/plugin/CLoadedExport.h"

// Loads the export with a dump into options.dumpDir and prints the dump's path,
// once it is sure that this load wrote all of it. Raises CHostError when the
// export cannot be loaded; answers an exit status.
int DumpCommand(const LoadOptions& options, COutput& output);
