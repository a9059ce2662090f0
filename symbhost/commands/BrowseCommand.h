#pragma once

#include "symbhost/exports/CListing.h"
#include "symbhost/output/COutput.h"
#include "symbhost/output/CRecordWriter.h"
#include "symbhost/plugin/CLoadedExport.h"

#include <optional>
#include <string>

struct BrowseOptions
{
    ListingRequest request;
    std::string fields;        // field codes; empty: none
    std::optional<DWORD> page; // show pages of this many entries
    bool tree = false;
    unsigned depth = 3;                  // levels of the tree
    OutputForm form = OutputForm::Table; // which is lines here, except with fields
};

// Lists the symbols below a path as they come. Answers an exit status:
// kIncomplete when nothing can be listed there or the listing broke off.
int BrowseCommand(CLoadedExport& loaded, const BrowseOptions& options, COutput& output);
