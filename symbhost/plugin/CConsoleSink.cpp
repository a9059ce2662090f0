#include "symbhost/plugin/CConsoleSink.h"

#include "symbhost/Text.h"

#include <iostream>
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
    std::cerr << "level " << level << ": " << Printable(text) << '\n' << std::flush;
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
