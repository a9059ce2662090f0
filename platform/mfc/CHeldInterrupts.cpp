#include "platform/mfc/CHeldInterrupts.h"

#include <csignal>

namespace {

constexpr int kHeld[] = {
    SIGINT,
    SIGTERM,
#ifdef SIGHUP
    SIGHUP,
#endif
};

volatile std::sig_atomic_t heldSignal = 0;

void Hold(int signal)
{
    heldSignal = signal;
    std::signal(signal, Hold); // some systems take the handler away before they call it
}

// A signal that whoever started the program wants ignored stays so.
void HandleBy(void (*handler)(int))
{
    for (const int signal : kHeld)
        if (std::signal(signal, handler) == SIG_IGN)
            std::signal(signal, SIG_IGN);
}

} // namespace

CHeldInterrupts::CHeldInterrupts()
{
    heldSignal = 0;
    HandleBy(Hold);
}

CHeldInterrupts::~CHeldInterrupts()
{
    HandleBy(SIG_DFL);
}

bool CHeldInterrupts::WasInterrupted() const
{
    return heldSignal != 0;
}

void CHeldInterrupts::EndIfInterrupted()
{
    if (const int signal = heldSignal) {
        std::signal(signal, SIG_DFL); // on Windows Hold runs on a thread of its own and may just have come back
        std::raise(signal);
    }
}
