#pragma once

#include "platform/win32/Types.h"

// While it lives, an interrupt or a request to end (Ctrl-C, SIGTERM) does not end the program but is remembered,
// so that work that must not be left half done can be tidied up. One at a time; construct and destroy it on
// the main thread.
class PLATFORM_API CHeldInterrupts
{
public:
    CHeldInterrupts();
    CHeldInterrupts(const CHeldInterrupts&) = delete;
    CHeldInterrupts& operator=(const CHeldInterrupts&) = delete;
    // Lets interrupts end the program again.
    ~CHeldInterrupts();

    bool WasInterrupted() const;
    // Ends the program by the interrupt that was held back; returns when there was none.
    static void EndIfInterrupted();
};
