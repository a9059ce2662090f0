#include "symbhost/commands/WalkCutNotice.h"

#include "symbhost/Failure.h"

void ComplainOfCut(const WalkCut& cut)
{
    if (cut.count != 0)
        Complain("not everything is listed: below " + cut.first + ", " + cut.why +
                 (cut.count == 1 ? "" : "; and below " + std::to_string(cut.count - 1) + " more"));
    if (cut.isStopped)
        Complain("not everything is looked at: there are more than " + std::to_string(WalkOptions::kMostSymbols) +
                 " symbols");
}
