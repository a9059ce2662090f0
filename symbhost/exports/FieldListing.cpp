#include "symbhost/exports/FieldListing.h"

#include <utility>

namespace {

struct Wanted
{
    BOOL branchesOnly;
    BOOL leaves;
    BOOL branches;
};

HRESULT ListTexts(CSymb& table, const ListingRequest& request, Wanted wanted, const std::string& codes,
                  CStringArray& texts)
{
    return table.BrowseSymbols(request.filter.c_str(), request.pattern.c_str(), request.varType, request.path.c_str(),
                               0, 0, wanted.branchesOnly, wanted.leaves, wanted.branches,
                               static_cast<LONG>(codes.size()), codes.c_str(), &texts, nullptr);
}

// One call for the names and one for each field: names and comments may hold
// bars themselves, so a text with all fields could not be taken apart.
HRESULT ListOnce(CSymb& table, const ListingRequest& request, Wanted wanted, const std::string& codes,
                 std::vector<FieldEntry>& entries)
{
    CStringArray names;
    HRESULT result = ListTexts(table, request, wanted, "", names);
    const std::size_t first = entries.size();
    for (int index = 0; index < names.GetSize(); ++index)
        entries.push_back({std::string(names.GetAt(index).View()), {}});
    for (const char code : codes) {
        CStringArray texts;
        if (SUCCEEDED(result))
            result = ListTexts(table, request, wanted, std::string(1, code), texts);
        for (std::size_t index = first; index < entries.size(); ++index) {
            const int position = static_cast<int>(index - first);
            const bool isListed = position < texts.GetSize(); // memory may end a listing early
            const std::string_view text = isListed ? texts.GetAt(position).View() : std::string_view();
            const std::size_t barEnd = entries[index].name.size() + 1;
            entries[index].fields.emplace_back(text.size() > barEnd ? text.substr(barEnd) : std::string_view());
        }
    }
    return result;
}

void MergeInListingOrder(CSymb& table, const ListingRequest& request, std::vector<FieldEntry>& leaves,
                         std::vector<FieldEntry>& branches, std::vector<FieldEntry>& merged)
{
    ListingRequest everything = request; // the filters of both kinds of listing differ
    everything.filter.clear();
    everything.varType = 0;
    CListing listing(table, everything);
    std::vector<ListingEntry> page;
    auto leaf = leaves.begin();
    auto branch = branches.begin();
    while (listing.NextPage(page)) {
        for (const ListingEntry& entry : page) {
            if (leaf != leaves.end() && leaf->name == entry.name)
                merged.push_back(std::move(*leaf++));
            else if (branch != branches.end() && branch->name == entry.name)
                merged.push_back(std::move(*branch++));
        }
    }
}

} // namespace

HRESULT ListFields(CSymb& table, const ListingRequest& request, const std::string& codes,
                   std::vector<FieldEntry>& entries)
{
    constexpr Wanted kLeaves = {FALSE, TRUE, FALSE};
    constexpr Wanted kBranches = {TRUE, FALSE, FALSE};
    constexpr Wanted kAll = {FALSE, TRUE, TRUE};
    if (!request.wantBranches)
        return ListOnce(table, request, kLeaves, codes, entries);
    if (!request.wantLeaves)
        return ListOnce(table, request, kBranches, codes, entries);
    if (!request.path.empty())
        return ListOnce(table, request, kAll, codes, entries);
    // At the root one call lists either the simple variables or the others.
    std::vector<FieldEntry> leaves;
    std::vector<FieldEntry> branches;
    HRESULT result = ListOnce(table, request, kLeaves, codes, leaves);
    if (SUCCEEDED(result))
        result = ListOnce(table, request, kBranches, codes, branches);
    MergeInListingOrder(table, request, leaves, branches, entries);
    return result;
}
