#include "symbhost/CProgress.h"

#include "symbhost/Failure.h"
#include "symbhost/output/Terminal.h"

#include <algorithm>
#include <chrono>

CProgress::CProgress(const COutput& output)
{
    if (!output.IsTerminal() && TerminalColumns(STD_ERROR_HANDLE) != 0)
        watcher = std::thread([this, &output] { Run(output); });
}

CProgress::~CProgress()
{
    if (!watcher.joinable())
        return;
    {
        const std::lock_guard guard(mutex);
        isEnded = true;
    }
    ended.notify_one();
    watcher.join();
    ShowProgress({});
}

void CProgress::Show(const std::string& text)
{
    const std::size_t columns = TerminalColumns(STD_ERROR_HANDLE);
    ShowProgress(text.substr(0, std::max<std::size_t>(columns, 1) - 1)); // a full line would wrap
}

void CProgress::Run(const COutput& output)
{
    constexpr std::chrono::seconds kInterval(1);
    std::unique_lock guard(mutex);
    std::uint64_t shown = 0;
    for (unsigned seconds = 1; !ended.wait_for(guard, kInterval, [this] { return isEnded; }); ++seconds) {
        const std::uint64_t bytes = output.WrittenBytes();
        if (bytes == 0)
            Show("working, " + std::to_string(seconds) + " s");
        else if (bytes != shown)
            Show(std::to_string(bytes / 1024) + " KiB of results, " + std::to_string(seconds) + " s");
        shown = bytes;
    }
}
