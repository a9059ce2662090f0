#pragma once

#include "symbhost/commands/RowFilter.h"
#include "symbhost/exports/CWalk.h"
#include "symbhost/output/COutput.h"
#include "symbhost/output/CRecordWriter.h"

struct ListOptions
{
    std::vector<std::string> paths; // as on the command line; none: all variables
    WalkOptions walk;
    RowFilter filter; // as on the command line
    OutputForm form = OutputForm::Table;
};

// Lists symbols with their places. Answers an exit status: kIncomplete when a path is missing or something was cut.
int ListCommand(CLoadedExport& loaded, const ListOptions& options, COutput& output);
