// Who looks at what the program writes.
#pragma once

#include "platform/win32/Console.h"

// The width of the terminal that is standard output (STD_OUTPUT_HANDLE) or standard error; 0: it is none.
std::size_t TerminalColumns(DWORD stream);
