// A host on the command line, for those who configure or debug one.

#include "symbhost/CCommandLine.h"
#include "symbhost/COutput.h"

#include <csignal>
#include <iostream>

namespace {

// Where there is such a signal, it would end the program at the first write
// after the reader of its output went away; without it the write fails.
void IgnoreClosedPipes()
{
#ifdef SIGPIPE
    std::signal(SIGPIPE, SIG_IGN);
#endif
}

} // namespace

int main(int argc, char** argv)
{
    std::ios::sync_with_stdio(false);
    IgnoreClosedPipes();
    COutput output(std::cout);
    return CCommandLine().Run(argc, argv, output);
}
