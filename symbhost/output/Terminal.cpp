#include "symbhost/output/Terminal.h"

std::size_t TerminalColumns(DWORD stream)
{
    CONSOLE_SCREEN_BUFFER_INFO info;
    if (!GetConsoleScreenBufferInfo(GetStdHandle(stream), &info))
        return 0;
    return static_cast<std::size_t>(info.srWindow.Right) - static_cast<std::size_t>(info.srWindow.Left) + 1;
}
