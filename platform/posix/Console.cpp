#include "platform/win32/Console.h"

#include <algorithm>
#include <limits>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

// As every handle of a file: the descriptor plus one.
HANDLE HandleOf(int descriptor)
{
    return reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(descriptor) + 1);
}

} // namespace

HANDLE GetStdHandle(DWORD stream)
{
    return HandleOf(stream == STD_OUTPUT_HANDLE ? STDOUT_FILENO : STDERR_FILENO);
}

BOOL GetConsoleScreenBufferInfo(HANDLE console, CONSOLE_SCREEN_BUFFER_INFO* info)
{
    const int descriptor = static_cast<int>(reinterpret_cast<std::intptr_t>(console) - 1);
    winsize size{};
    if (isatty(descriptor) == 0 || ioctl(descriptor, TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return FALSE;
    constexpr int kMost = std::numeric_limits<std::int16_t>::max();
    *info = {};
    info->srWindow.Right = static_cast<std::int16_t>(std::min<int>(size.ws_col, kMost) - 1);
    info->srWindow.Bottom = static_cast<std::int16_t>(std::min<int>(size.ws_row, kMost) - 1);
    return TRUE;
}
