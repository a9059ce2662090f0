// One listing of the children of a value, and where its entries go.
#pragma once

#include "platform/mfc/CArray.h"
#include "platform/mfc/CString.h"
#include "symbkds/browse/CListingPage.h"
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

// Finds the value that a path leads to. E_INVALIDARG when it is none of a derived type. The caller holds the lock.
HRESULT FindBrowseTarget(CSymbXml& symbolTable, LPCSTR browsePath, BrowseTarget& target);

// One call of BrowseChildren.
struct BrowseRequest
{
    const ListingOptions& options;
    const BrowseTarget& target;
    CSymbXml& symbolTable;
    CListingPage& page;
    CStringArray& names; // entry texts, appended
    CWordArray& kinds;   // BrowseElement::kLeaf or kBranch, one for each name
};
