// Why a symbol that is listed is not served.
#pragma once

#include "symbhost/exports/ExportRecords.h"
#include "symbhost/exports/Lookup.h"
#include "symbhost/exports/Reason.h"

#include <string_view>

// Whether the lookup says that it cannot take the name apart.
bool IsNoPath(const LookupAnswer& failed);

enum class NameOf
{
    Variable,
    Member
};
// Whether a lookup reads the name itself as a path or a bit, so that it never answers with the symbol.
bool IsUnreachable(std::string_view name, NameOf what);
// Why, as half a sentence.
constexpr char kReadOtherwise[] =
    "a lookup takes \".\" and \"[\" for the next step, a number for a bit, and blanks in front of a variable off";

// A variable that is listed but not served.
Reason ReasonOfRoot(const LookupAnswer& failed, const ExportItem& variable, bool isBranch);

// A member or element that is listed, under `name`, but not served; `hasUnknownType`: a branch that cannot be listed.
Reason ReasonOfMember(const LookupAnswer& failed, std::string_view name, bool hasUnknownType);
