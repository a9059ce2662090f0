// Tables of what the symbols of an export resolve to.
#pragma once

#include "support/LoadedExport.h"
#include "support/Split.h"

#include <span>
#include <vector>

struct LookupCase
{
    const char* names; // several between bars
    const char* text;  // as HostSymbol shows it
};

inline void ExpectLookups(std::string_view exportText, std::span<const LookupCase> rows)
{
    CLoadedExport plant(exportText);
    for (const LookupCase& row : rows)
        for (const std::string& name : Split(row.names))
            EXPECT_EQ(plant.table.Lookup(name.c_str()), row.text) << name;
}

// One export and its lookups.
struct PlantCase
{
    const char* exportText;
    std::vector<LookupCase> lookups;
};

inline void ExpectLookups(std::span<const PlantCase> plants)
{
    for (const PlantCase& row : plants)
        ExpectLookups(row.exportText, row.lookups);
}

// What the lookup of any path answers when a definition refuses it.
inline constexpr char kNoSuchPath[] = "E_INVALIDARG, silent";
// What it answers to a bit that the value does not have.
inline constexpr char kNoSuchBit[] = "refused, silent";
