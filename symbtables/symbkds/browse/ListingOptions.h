#pragma once

#include "platform/com/Variant.h"
#include "platform/mfc/CString.h"

#include <string_view>

// Which symbols a host wants to see, and how. Views the host's texts.
struct ListingOptions
{
    // What a host passes; a null text counts as empty, and codes that are null as none.
    ListingOptions(LPCSTR filter, LPCSTR namePattern, VARTYPE varType, BOOL onlyBranches, BOOL leaves, BOOL branches,
                   LONG fieldCount, const char* codes);

    bool AcceptsVarType(VARTYPE varType) const { return varTypeFilter == 0 || varTypeFilter == varType; }
    // Case matters.
    bool AcceptsName(const CString& name) const { return name.View().starts_with(namePrefix); }

    bool unlocatedOnly;          // the filter asks for symbols without an address of their own
    std::string_view namePrefix; // what stands before the first "*" of the pattern, or all of it when there is none
    VARTYPE varTypeFilter;       // 0: any
    bool branchesOnly;
    bool wantLeaves;
    bool wantBranches;
    std::string_view fieldCodes;
};
