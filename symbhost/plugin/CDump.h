#pragma once

#include "platform/win32/Types.h"

#include <filesystem>
#include <string>

// The dump that a load is asked for. It is written into a new subfolder, which goes with this object, and
// takes the place of an older one only when all of it was written.
class CDump
{
public:
    // `givenFolder` must exist (ANSI code page). Raises CHostError when nothing can be created there.
    explicit CDump(const std::string& givenFolder);
    CDump(const CDump&) = delete;
    CDump& operator=(const CDump&) = delete;
    ~CDump();

    // The subfolder, for the load.
    const std::string& Folder() const { return subfolder; }
    // Keeps what a load of `exportPath` between two readings of GetTickCount wrote. Raises CHostError when that
    // is no complete dump.
    void Keep(const std::string& exportPath, DWORD earliestTick, DWORD latestTick) const;

private:
    std::string folder;
    std::string subfolder;
};
