// Which files stand behind components, for what people are told.
#pragma once

#include "platform/com/Unknown.h"

#include <string>

// Where CoCreateInstance looks for the in-process server of a class: on Windows the program's manifest and a key of
// the registry, elsewhere a file, which need not exist.
PLATFORM_API std::string InprocServerPlace(REFCLSID clsid);

// The file that the code or data at `address` was loaded from; empty when it is part of none.
PLATFORM_API std::string ModuleFile(const void* address);
