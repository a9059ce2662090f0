#pragma once

#include <filesystem>
#include <string>

// A folder of its own below the system's temporary folder, readable by this
// user only; its destruction removes it with all that it holds.
class CTemporaryFolder
{
public:
    // Raises CHostError when none can be created.
    CTemporaryFolder();
    CTemporaryFolder(const CTemporaryFolder&) = delete;
    CTemporaryFolder& operator=(const CTemporaryFolder&) = delete;
    ~CTemporaryFolder();

    std::string Path() const { return path.string(); }

private:
    std::filesystem::path path;
};
