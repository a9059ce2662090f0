// What a listing is asked for and where its entries go.
#pragma once

#include "platform/com/Variant.h"
#include "platform/mfc/CArray.h"
#include "platform/mfc/CString.h"

#include <cstdint>
#include <string_view>

class CSymbXMLDDTDef;
class CSymbXMLItemDef;
class CSymbXml;

// Which symbols a host wants to see, and how. Views the host's texts.
struct BrowseOptions
{
    // What a host passes; a null text counts as empty, and codes that are null as none.
    BrowseOptions(LPCSTR filter, LPCSTR namePattern, VARTYPE varType, BOOL onlyBranches, BOOL leaves, BOOL branches,
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

// The value whose children are listed.
struct BrowseTarget
{
    CSymbXMLDDTDef* definition = nullptr;
    const CSymbXMLItemDef* root = nullptr; // the variable that holds it
    std::uint16_t block = 0;
    std::uint32_t offset = 0; // bytes
    std::uint32_t size = 0;   // bytes
    CString prefix;           // names an array's elements, an index behind it
};

// The part of an array listing that one page needs.
struct BrowseWindow
{
    CString resumeAt;         // the entry to begin with; empty: the first
    std::uint64_t entryLimit; // entries enough for the page and the point at which the next one begins
};

// One call of BrowseChildren.
struct BrowseRequest
{
    const BrowseOptions& options;
    const BrowseTarget& target;
    CSymbXml& symbolTable;
    CStringArray& names;                  // entry texts, appended
    CWordArray& kinds;                    // BrowseElement::kLeaf or kBranch, one for each name
    const BrowseWindow* window = nullptr; // arrays alone read it; null: list everything
};
