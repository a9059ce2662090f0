#include "symbhost/plugin/CConsoleSink.h"

#include "symbhost/Failure.h"

#include <utility>

void CConsoleSink::Trace(LONG level, LPCSTR text)
{
    ++count;
    if (collecting && level == kLevelFailure) {
        if (!collected.empty())
            collected += "; ";
        collected += text;
        return;
    }
    WriteErrorLine("level " + std::to_string(level) + ": " + text);
}

void CConsoleSink::Collect()
{
    collecting = true;
}

std::string CConsoleSink::TakeCollected()
{
    collecting = false;
    return std::exchange(collected, std::string());
}
