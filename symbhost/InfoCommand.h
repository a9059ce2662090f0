#pragma once

#include "symbhost/CLoadedExport.h"
#include "symbhost/COutput.h"

// Prints what the plug-in says about itself and the export, and counts the
// variables. Answers an exit status.
int InfoCommand(CLoadedExport& loaded, COutput& output);
