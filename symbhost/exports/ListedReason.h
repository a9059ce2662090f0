// Why a symbol that is listed is not served.
#pragma once

#include "symbhost/exports/ExportRecords.h"
#include "symbhost/exports/Lookup.h"
#include "symbhost/exports/Reason.h"

#include <string_view>

// Whether the lookup says that it cannot take the name apart.
bool IsNoPath(const LookupAnswer& failed);

// Whether no path leads to a symbol of this name because the name itself reads like a path or a bit.
bool IsUnreachable(std::string_view name);

// A variable that is listed but not served.
Reason ReasonOfRoot(const LookupAnswer& failed, const ExportItem& variable, bool isBranch);

// A member or element that is listed, under `name`, but not served; `hasUnknownType`: a branch that cannot be listed.
Reason ReasonOfMember(const LookupAnswer& failed, std::string_view name, bool hasUnknownType);
