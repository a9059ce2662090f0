#pragma once

#include "symbkds/browse/ListingOptions.h"
#include "symbkds/frame/CSymbXml.h"

class CBrowseElementWriter;

// The variables that a request wants, in the order of their dictionary. The lock of the symbol table is held meanwhile.
class CVariableListing
{
public:
    // Both outlive the listing.
    CVariableListing(const CSymbXml& listedTable, const ListingOptions& listingOptions)
        : table(listedTable), options(listingOptions)
    {}

    // Appends entry texts: variables with an address text, of the kinds that a plain name serves or of a derived type.
    void AsTexts(CStringArray& names) const;
    // Adds records until the writer has enough: variables of every type, located or not, without fields.
    void AsRecords(CBrowseElementWriter& writer) const;

private:
    const CSymbXml::Variables::CPair* FirstRecord(const CString& resumeAt) const;
    bool MayBeText(const CSymbXMLItemDef& variable) const;
    bool MayBeRecord(const CSymbXMLItemDef& variable) const;
    bool IsBranch(const CSymbXMLItemDef& variable) const;
    CString AddressOf(const CSymbXMLItemDef& variable) const;

    const CSymbXml& table;
    const ListingOptions& options;
};
