#include "symbhost/plugin/CDump.h"

#include "platform/mfc/Conversion.h"
#include "platform/win32/CodePage.h"
#include "platform/win32/File.h"
#include "symbhost/Failure.h"
#include "symbhost/plugin/DumpFile.h"

#include <random>
#include <system_error>
#include <type_traits>

namespace fs = std::filesystem;

namespace {

// A path in the ANSI code page as the standard library wants it on this system.
fs::path NativePath(const std::string& path)
{
    if constexpr (std::is_same_v<fs::path::value_type, char>)
        return path;
    else
        return Widen(path, CP_ACP);
}

} // namespace

CDump::CDump(const std::string& givenFolder) : folder(givenFolder)
{
    constexpr int kAttempts = 16;
    if (folder.empty())
        throw CHostError("the name of the folder for the dump is empty");
    const std::string separator = folder.ends_with(kPathSeparator) ? "" : std::string(1, kPathSeparator);
    std::error_code error;
    std::random_device random;
    for (int attempt = 0; !error && attempt < kAttempts; ++attempt) {
        subfolder = folder + separator + "symbhost-" + std::to_string(random());
        if (fs::create_directory(NativePath(subfolder), error))
            return;
    }
    throw CHostError("no dump can be written into " + folder + ": " + error.message());
}

CDump::~CDump()
{
    std::error_code ignored;
    fs::remove_all(NativePath(subfolder), ignored);
}

void CDump::Keep(const std::string& exportPath, DWORD earliestTick, DWORD latestTick) const
{
    const std::string written = DumpPath(subfolder, exportPath);
    const std::string wanted = DumpPath(folder, exportPath);
    if (const std::string problem = DumpProblem(written, earliestTick, latestTick); !problem.empty())
        throw CHostError("no dump was written to " + wanted + ": " + problem);
    std::error_code error;
    fs::rename(NativePath(written), NativePath(wanted), error);
    if (error)
        throw CHostError("no dump was written to " + wanted + ": " + error.message());
}
