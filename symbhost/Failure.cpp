#include "symbhost/Failure.h"

#include "symbhost/Text.h"

#include <iostream>
#include <mutex>

namespace {

std::mutex errorMutex;
std::size_t shownProgress = 0; // columns of the terminal's line that are taken by it

// Call with the mutex held.
void WipeProgress()
{
    if (shownProgress != 0)
        std::cerr << '\r' << std::string(shownProgress, ' ') << '\r';
    shownProgress = 0;
}

} // namespace

void Complain(std::string_view text)
{
    WriteErrorLine("symbhost: " + std::string(text));
}

void WriteErrorLine(std::string_view text)
{
    const std::lock_guard guard(errorMutex);
    WipeProgress();
    std::cerr << Printable(text) << '\n' << std::flush;
}

void ShowProgress(std::string_view text)
{
    const std::lock_guard guard(errorMutex);
    WipeProgress();
    std::cerr << text << std::flush;
    shownProgress = text.size();
}
