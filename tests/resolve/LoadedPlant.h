// An export loaded by the built plug-in, and tables of what its symbols resolve to.
#pragma once

#include "support/ExportBuilder.h"
#include "support/HostView.h"
#include "support/RecordingSink.h"
#include "support/Split.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <span>

struct CLoadedPlant
{
    explicit CLoadedPlant(std::string_view exportText, BOOL verbose = TRUE)
    {
        EXPECT_EQ(table.Load(WriteExport(folder, exportText), verbose), 0);
        EXPECT_EQ(table.TakeMessages(), "");
    }

    CTemporaryFolder folder;
    CRecordingSink sink;
    CHostTable table{sink};
};

struct LookupCase
{
    const char* names; // several between bars
    const char* text;  // as HostSymbol shows it
};

inline void ExpectLookups(std::string_view exportText, std::span<const LookupCase> rows)
{
    CLoadedPlant plant(exportText);
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
