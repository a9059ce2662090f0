#pragma once

#include "symbhost/commands/CNameList.h"
#include "symbhost/exports/CExplainer.h"
#include "symbhost/output/COutput.h"
#include "symbhost/output/CRecordWriter.h"

struct WhyOptions
{
    NameSource names;
    OutputForm form = OutputForm::Table;
};

// Tells why a host gets symbols, or not. Answers an exit status: kIncomplete when one is not served.
int WhyCommand(CLoadedExport& loaded, const WhyOptions& options, COutput& output);
