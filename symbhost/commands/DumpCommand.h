#pragma once

#include "symbhost/output/COutput.h"
#include "symbhost/plugin/CLoadedExport.h"

// Prints the path of the dump that the load with these options has written. Answers an exit status.
int DumpCommand(const LoadOptions& options, COutput& output);
