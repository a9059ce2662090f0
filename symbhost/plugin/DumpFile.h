// The file into which a load writes its dictionaries.
#pragma once

#include "platform/win32/Types.h"

#include <string>

// Where a load of `exportPath` with the dump folder `dumpDir` writes: the
// export's path with separators and colons replaced, in that folder.
std::string DumpPath(const std::string& dumpDir, const std::string& exportPath);

// Why the file at `path` is no complete dump that was begun between two readings
// of GetTickCount; empty when it is one.
std::string DumpProblem(const std::string& path, DWORD earliestTick, DWORD latestTick);
