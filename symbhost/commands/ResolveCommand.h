#pragma once

#include "symbhost/output/COutput.h"
#include "symbhost/plugin/CLoadedExport.h"

#include <string>
#include <vector>

struct ResolveOptions
{
    std::vector<std::string> names; // as on the command line; "-" stands for the lines of standard input
    bool json = false;
};

// Resolves names and prints their addresses as a table or as a JSON array.
// Answers an exit status: kIncomplete when a name was not resolved.
int ResolveCommand(CLoadedExport& loaded, const ResolveOptions& options, COutput& output);
