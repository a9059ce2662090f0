// Listings as texts, with addresses and comments.
#pragma once

#include "symb/CSymb.h"
#include "symbhost/exports/CListing.h"

#include <string>
#include <vector>

struct FieldEntry
{
    std::string name;
    std::vector<std::string> fields; // one for each field code
};

// Lists what `request` asks for (its page size aside) with the fields `codes`:
// 'A' the address, 'C' the comment. Of the variables, only those with an address are
// listed; of the simple ones among them only those of 1 or 2 bytes. Entries come in the order of the listing.
// Answers the result of the interface; `entries` may hold some after a failure.
HRESULT ListFields(CSymb& table, const ListingRequest& request, const std::string& codes,
                   std::vector<FieldEntry>& entries);
