#include "platform/win32/Clock.h"

#include <cerrno>
#include <ctime>
#include <sched.h>

DWORD GetTickCount()
{
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    const auto milliseconds =
        static_cast<std::uint64_t>(now.tv_sec) * 1000 + static_cast<std::uint64_t>(now.tv_nsec) / 1000000;
    return static_cast<DWORD>(milliseconds);
}

void Sleep(DWORD milliseconds)
{
    if (milliseconds == 0) {
        sched_yield();
        return;
    }
    timespec left{static_cast<std::time_t>(milliseconds / 1000), static_cast<long>(milliseconds % 1000) * 1000000};
    while (clock_nanosleep(CLOCK_MONOTONIC, 0, &left, &left) == EINTR) {}
}
