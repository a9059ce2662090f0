#pragma once

#include "symbhost/exports/CListing.h"
#include "symbhost/output/COutput.h"

#include <string>

// Draws the symbols below a path as a tree, down to a depth, as it reads them.
class CTreeView
{
public:
    // A symbol path has no more steps than this, so no tree is deeper.
    static constexpr unsigned kDeepest = 16;

    // `levels` is 1 to kDeepest.
    CTreeView(CSymb& source, COutput& target, unsigned levels) : table(source), output(target), depth(levels) {}

    // The request's pattern and filter select entries of the first level. Answers why
    // that level is not complete; empty when it is.
    std::string Print(const ListingRequest& request);

    // Whether every branch within the depth could be listed; one that could not says so in the tree.
    bool IsComplete() const { return isComplete; }

private:
    // Calls itself for each branch, never deeper than `depth`.
    std::string PrintLevel(const ListingRequest& request, const std::string& indent, unsigned level);
    void PrintBelow(const ListingRequest& request, const std::string& symbol, const std::string& indent,
                    unsigned level);

    CSymb& table;
    COutput& output;
    unsigned depth;
    bool isComplete = true;
};
