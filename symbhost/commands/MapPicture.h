// The memory of a project as a picture.
#pragma once

#include "symbhost/exports/CExportFile.h"
#include "symbhost/exports/CMemoryMap.h"
#include "symbhost/exports/CRowStore.h"

// Variables with a place, by the numbers under which the map knows them.
struct MappedProject
{
    CMemoryMap memory;
    CRowStore variables;
};

// Writes the SVG file `svgPath`; both paths are in the ANSI code page. Raises CHostError when it cannot be written.
void DrawMap(MappedProject& project, const CExportFile& file, const std::string& svgPath,
             const std::string& exportPath);
