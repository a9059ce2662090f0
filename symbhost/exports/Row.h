// A symbol as list, diff and at show it.
#pragma once

#include "symbhost/exports/ExportRecords.h"
#include "symbhost/exports/Lookup.h"
#include "symbhost/exports/Reason.h"
#include "symbhost/output/Cell.h"

// What a row holds besides its texts.
struct RowFacts
{
    // How much is known besides name, result, level and reason.
    enum class Known : std::uint8_t
    {
        Nothing,
        Export, // what the export says of a variable: texts, access, block, offset, size
        Lookup  // all: the symbol is served
    };

    HRESULT result = S_OK; // of the lookup
    DWORD typeCode = 0;
    DWORD offset = 0; // bytes
    DWORD size = 0;   // bytes
    DWORD relativeOffset = 0;
    WORD relativeSize = 0;
    WORD block = 0;
    std::uint8_t accessRights = 0; // 1 read, 2 write, 3 both, 0 none
    std::uint8_t bit = 0;          // 0 to 15 where isBit
    bool isBit = false;
    bool isByReference = false;
    bool isBranch = false;
    Known known = Known::Nothing;
    Reason reason = Reason::None;

    bool IsServed() const { return known == Known::Lookup; }
};

// Texts are UTF-8 and live where the row comes from.
struct Row : RowFacts
{
    std::string_view name;
    std::string_view address;
    std::string_view typeName;
    std::string_view kindName;
    std::string_view comment;
    std::string_view customerString;
};

// "r", "w", "rw" or "none".
std::string_view AccessText(DWORD accessRights);

// The answer of a lookup, of a failure the result alone.
Row RowOf(const LookupAnswer& answer);
// Adds to a row what the export says of the variable.
void AddExport(Row& row, const ExportItem& variable);

// name, result, address, type ... customerString, level, served, reason.
std::span<const Field<Row>> RowFields();
// The first of them, up to customerString: what a lookup answers.
std::span<const Field<Row>> LookupFields();
