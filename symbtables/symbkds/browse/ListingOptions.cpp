#include "symbkds/browse/ListingOptions.h"

namespace {

std::string_view ViewOf(LPCSTR text)
{
    return text ? text : "";
}

} // namespace

ListingOptions::ListingOptions(LPCSTR filter, LPCSTR pattern, VARTYPE varType, BOOL onlyBranches, BOOL leaves,
                               BOOL branches, LONG fieldCount, const char* codes)
    : unlocatedOnly(ViewOf(filter).find("%UL") != std::string_view::npos), namePattern(ViewOf(pattern)),
      varTypeFilter(varType), branchesOnly(onlyBranches != 0), wantLeaves(leaves != 0), wantBranches(branches != 0)
{
    if (fieldCount > 0 && codes)
        fieldCodes = {codes, static_cast<std::size_t>(fieldCount)};
}
