#pragma once

#include "symbhost/output/COutput.h"
#include "symbhost/plugin/CLoadedExport.h"

// Prints what the plug-in says about itself and the export, and counts the
// variables; as lines or as a JSON object. Answers an exit status.
int InfoCommand(CLoadedExport& loaded, bool json, COutput& output);
