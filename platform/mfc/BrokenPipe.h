#pragma once

#include "platform/win32/Types.h"

// For programs: a write whose reader went away shall fail, as it does on Windows, instead of ending the program by a
// signal. Holds for the whole process and cannot be undone; call it before the first write.
PLATFORM_API void LetBrokenPipesFail() noexcept;
