// A folder of its own for one test.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// Created empty; removed with everything in it when the object goes.
class CTemporaryFolder
{
public:
    CTemporaryFolder();
    CTemporaryFolder(const CTemporaryFolder&) = delete;
    CTemporaryFolder& operator=(const CTemporaryFolder&) = delete;
    ~CTemporaryFolder();

    // Without a separator at its end.
    const std::string& Path() const { return path; }
    // The path of a file in the folder; `name` may hold subfolders that exist.
    std::string FilePath(std::string_view name) const { return (std::filesystem::path(path) / name).string(); }

    // Writes the bytes as they are, replacing a file of that name; returns its path.
    std::string WriteFile(std::string_view name, std::string_view bytes) const;
    // The bytes of a file in the folder; throws std::runtime_error when it cannot be read.
    std::string ReadFile(std::string_view name) const;
    bool Exists(std::string_view name) const { return std::filesystem::exists(FilePath(name)); }
    // The names of the files and folders inside, sorted and joined by blanks.
    std::string List() const;

private:
    std::string path;
};

// The bytes of any file; throws std::runtime_error when it cannot be read.
std::string ReadWholeFile(const std::string& path);

// Moves a file's modification time by whole seconds.
void ShiftFileTime(const std::string& path, int seconds);
