#pragma once

#include "symbhost/exports/CWalk.h"

// Says on standard error what a walk left out, if it did.
void ComplainOfCut(const WalkCut& cut);
