#pragma once

#include "symbhost/output/COutput.h"
#include "symbhost/output/CRecordWriter.h"
#include "symbhost/plugin/CLoadedExport.h"

#include <string>
#include <vector>

struct AtOptions
{
    std::vector<std::string> places; // as on the command line
    OutputForm form = OutputForm::Table;
};

// Lists the symbols that touch each place. Answers an exit status: kIncomplete when a place is
// empty or not all symbols were looked at. Raises CHostError for what is no place.
int AtCommand(CLoadedExport& loaded, const AtOptions& options, COutput& output);
