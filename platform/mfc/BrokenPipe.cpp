#include "platform/mfc/BrokenPipe.h"

#include <csignal>

void LetBrokenPipesFail() noexcept
{
#ifdef SIGPIPE
    std::signal(SIGPIPE, SIG_IGN);
#endif
}
