#pragma once

#include "platform/com/Variant.h"
#include "platform/mfc/CString.h"
#include "symbkds/browse/NamePattern.h"

#include <string_view>

// Which symbols a host wants to see, and how. Views the host's texts.
struct ListingOptions
{
    // What a host passes; a null text counts as empty, and codes that are null as none.
    ListingOptions(LPCSTR filter, LPCSTR pattern, VARTYPE varType, BOOL onlyBranches, BOOL leaves, BOOL branches,
                   LONG fieldCount, const char* codes);

    bool AcceptsVarType(VARTYPE varType) const { return varTypeFilter == 0 || varTypeFilter == varType; }
    bool AcceptsName(const CString& name) const { return MatchNamePattern(name.View(), namePattern); }

    bool unlocatedOnly; // the filter asks for symbols without an address of their own
    std::string_view namePattern;
    VARTYPE varTypeFilter; // 0: any
    bool branchesOnly;
    bool wantLeaves;
    bool wantBranches;
    std::string_view fieldCodes;
};
