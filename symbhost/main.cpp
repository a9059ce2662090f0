// A host on the command line, for those who configure or debug one.

#include "platform/mfc/BrokenPipe.h"
#include "symbhost/CCommandLine.h"
#include "symbhost/output/COutput.h"
#include "symbhost/output/Terminal.h"

#include <iostream>

int main(int argc, char** argv)
{
    std::ios::sync_with_stdio(false);
    LetBrokenPipesFail();
    COutput output(std::cout, TerminalColumns(STD_OUTPUT_HANDLE));
    return CCommandLine().Run(argc, argv, output);
}
