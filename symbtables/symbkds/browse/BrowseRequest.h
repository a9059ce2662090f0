// What a listing is asked for and where its entries go.
#pragma once

#include "platform/mfc/CArray.h"
#include "platform/mfc/CString.h"
#include "symbkds/browse/ListingOptions.h"

#include <cstdint>

class CSymbXMLDDTDef;
class CSymbXMLItemDef;
class CSymbXml;

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
    const ListingOptions& options;
    const BrowseTarget& target;
    CSymbXml& symbolTable;
    CStringArray& names;                  // entry texts, appended
    CWordArray& kinds;                    // BrowseElement::kLeaf or kBranch, one for each name
    const BrowseWindow* window = nullptr; // arrays alone read it; null: list everything
};
