#include "symbhost/plugin/CTemporaryFolder.h"

#include "symbhost/Failure.h"

#include <random>
#include <system_error>

namespace fs = std::filesystem;

CTemporaryFolder::CTemporaryFolder()
{
    constexpr int kAttempts = 16;
    std::error_code error;
    const fs::path parent = fs::temp_directory_path(error);
    std::random_device random;
    for (int attempt = 0; !error && attempt < kAttempts; ++attempt) {
        fs::path candidate = parent / ("symbhost-" + std::to_string(random()));
        if (!fs::create_directory(candidate, error))
            continue; // taken, or an error that ends the loop
        path = std::move(candidate);
        fs::permissions(path, fs::perms::owner_all, error);
        return;
    }
    throw CHostError("no temporary folder can be created (" + error.message() + "); name one with --dump-dir");
}

CTemporaryFolder::~CTemporaryFolder()
{
    std::error_code ignored;
    fs::remove_all(path, ignored);
}
