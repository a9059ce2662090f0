#pragma once

#include "symbhost/output/COutput.h"
#include "symbhost/plugin/CLoadedExport.h"

// Prints what the plug-in says about itself and the export, and counts the
// variables. Answers an exit status.
int InfoCommand(CLoadedExport& loaded, COutput& output);
