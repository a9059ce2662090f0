#pragma once

#include "symbhost/output/COutput.h"
#include "symbhost/output/CRecordWriter.h"
#include "symbhost/plugin/CLoadedExport.h"

// Prints what will not work in an export, or looks wrong. Answers an exit status: kIncomplete after an error or a
// warning, an export that is not well-formed included.
int CheckCommand(const LoadOptions& load, OutputForm form, COutput& output);
