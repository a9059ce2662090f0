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

// Why `place` cannot be asked for; empty when it can.
std::string PlaceProblem(const std::string& place);

// Lists the symbols that touch each place. Answers an exit status: kIncomplete when a place is empty.
int AtCommand(CLoadedExport& loaded, const AtOptions& options, COutput& output);
