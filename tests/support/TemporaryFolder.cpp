#include "support/TemporaryFolder.h"

#include <chrono>
#include <fstream>
#include <random>
#include <set>
#include <sstream>
#include <stdexcept>
#include <utility>

CTemporaryFolder::CTemporaryFolder()
{
    // Several test programs run at the same time: creating the folder decides whose name it is.
    std::random_device random;
    std::filesystem::path candidate;
    do
        candidate = std::filesystem::temp_directory_path() / ("symbkds_" + std::to_string(random()));
    while (!std::filesystem::create_directory(candidate));
    path = candidate.string();
}

CTemporaryFolder::~CTemporaryFolder()
{
    std::error_code ignored; // what cannot be removed stays behind; the test has its result already
    std::filesystem::remove_all(path, ignored);
}

std::string CTemporaryFolder::WriteFile(std::string_view name, std::string_view bytes) const
{
    std::string file = FilePath(name);
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream)
        throw std::runtime_error("cannot write " + file);
    return file;
}

std::string CTemporaryFolder::ReadFile(std::string_view name) const
{
    return ReadWholeFile(FilePath(name));
}

std::string CTemporaryFolder::List() const
{
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path))
        names.insert(entry.path().filename().string());
    std::string joined;
    for (const std::string& name : names)
        joined += (joined.empty() ? "" : " ") + name;
    return joined;
}

std::string ReadWholeFile(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    if (!stream)
        throw std::runtime_error("cannot read " + path);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return std::move(bytes).str();
}

void ShiftFileTime(const std::string& path, int seconds)
{
    std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) + std::chrono::seconds(seconds));
}
