// A host loads an export once, into memory that it touches for the first time;
// a second load in the same process finds that memory ready and is several
// times cheaper, the bare parse above all. So each load has a process of its own.
#pragma once

#include <cstdint>
#include <string>

enum class LoadKind
{
    Parse,       // pugixml alone
    Init,        // Init without a dump
    InitAndDump, // Init with a dump
    InitCounted  // Init with its allocations counted
};

struct LoadResult
{
    double seconds = 0;           // processor time
    std::int64_t peakBytes = 0;   // resident memory of the process
    std::int64_t liveBytes = 0;   // heap memory in use after the load; only counted loads tell
    std::int64_t allocations = 0; // likewise
};

// Loads in a new process of this program.
LoadResult LoadInNewProcess(LoadKind kind, const std::string& path);

// What that process does: the program's arguments behind its name are `arguments`. False when they ask for no load.
bool RunLoadProcess(int argumentCount, char** arguments);
