// Which library or program an address is part of. Windows only.
#pragma once

#include "platform/win32/Types.h"

#include <string>

// The path of its file; empty when it cannot be had.
std::wstring ModulePath(const void* address);
