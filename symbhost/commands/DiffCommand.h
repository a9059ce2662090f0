#pragma once

#include "symbhost/commands/CNameList.h"
#include "symbhost/commands/RowFilter.h"
#include "symbhost/output/COutput.h"
#include "symbhost/output/CRecordWriter.h"
#include "symbhost/plugin/CLoadedExport.h"

#include <string>
#include <vector>

struct DiffOptions
{
    std::string before; // paths, as on the command line
    std::string after;
    std::vector<std::string> only; // words for changes; none: all
    RowFilter filter;              // as on the command line
    NameSource names;              // of its file, where there is one; the only names to compare
    OutputForm form = OutputForm::Table;
};

// Why `word` is no change that --only takes; empty when it is one.
std::string ChangeProblem(const std::string& word);

// Compares the symbols of two exports; of `load` the paths of the exports do not count. Answers an exit status:
// kIncomplete when a difference is shown or not all symbols were looked at.
int DiffCommand(const LoadOptions& load, const DiffOptions& options, COutput& output);
