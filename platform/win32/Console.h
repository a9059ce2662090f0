// The terminal that a program writes to.
#pragma once

#include "platform/win32/Types.h"

#ifndef _WIN32

constexpr DWORD STD_OUTPUT_HANDLE = 0xFFFFFFF5U;
constexpr DWORD STD_ERROR_HANDLE = 0xFFFFFFF4U;

struct SMALL_RECT
{
    std::int16_t Left;
    std::int16_t Top;
    std::int16_t Right;
    std::int16_t Bottom;
};

struct CONSOLE_SCREEN_BUFFER_INFO
{
    SMALL_RECT srWindow; // what is seen: columns and rows from 0, both ends included
};

// The handle of standard output or standard error; it must not be closed.
PLATFORM_API HANDLE GetStdHandle(DWORD stream);
// FALSE when the handle is no terminal or the terminal does not tell its size.
PLATFORM_API BOOL GetConsoleScreenBufferInfo(HANDLE console, CONSOLE_SCREEN_BUFFER_INFO* info);

#endif
