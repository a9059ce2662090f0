#pragma once

#include "symbhost/output/COutput.h"
#include "symbhost/output/CRecordWriter.h"
#include "symbhost/plugin/CLoadedExport.h"

#include <optional>
#include <string>

struct MapOptions
{
    std::optional<WORD> block; // only this one
    std::string svgPath;       // ANSI code page; empty: no picture
    OutputForm form = OutputForm::Table;
};

// Prints how the variables use the memory; with a path for a picture writes that, and prints only what is not
// for people. Answers an exit status.
int MapCommand(CLoadedExport& loaded, const MapOptions& options, COutput& output);
