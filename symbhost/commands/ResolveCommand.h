#pragma once

#include "symbhost/commands/CNameList.h"
#include "symbhost/output/COutput.h"
#include "symbhost/output/CRecordWriter.h"
#include "symbhost/plugin/CLoadedExport.h"

struct ResolveOptions
{
    NameSource names;
    OutputForm form = OutputForm::Table;
    bool why = false; // tell served, reason and text of each name
};

// Resolves names and prints their addresses. Answers an exit status: kIncomplete when a name was not resolved.
int ResolveCommand(CLoadedExport& loaded, const ResolveOptions& options, COutput& output);
