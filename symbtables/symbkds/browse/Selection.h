#pragma once

#include "symbkds/browse/ListingOptions.h"

// What the kinds of listing make differently of the flags of a request.
struct SelectionRules
{
    bool branchesOnRequest = true;         // `wantBranches` counts, not `branchesOnly` alone
    bool leavesBesideBranchesOnly = false; // `wantLeaves` counts beside `branchesOnly`
    bool bothWithoutFlags = false;         // without any flag everything is listed
};

// Which entries a request asks for: those of elementary types, and those of derived types.
struct Selection
{
    Selection(const ListingOptions& options, const SelectionRules& rules)
    {
        const bool none = !options.branchesOnly && !options.wantLeaves && !options.wantBranches;
        const bool both = none && rules.bothWithoutFlags;
        leaves = both || (options.wantLeaves && (rules.leavesBesideBranchesOnly || !options.branchesOnly));
        branches = both || options.branchesOnly || (options.wantBranches && rules.branchesOnRequest);
    }

    bool leaves;
    bool branches;
};
