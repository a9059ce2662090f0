// What one field of a printed record holds, and how fields are described.
#pragma once

#include "platform/win32/Types.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

// Printed as 0x and eight digits.
struct HexNumber
{
    DWORD value;
};

// The field does not belong to this record: JSON leaves its key out.
struct NoField
{};

// JSON made elsewhere, such as a record inside a record. Tables and CSV have no use for it.
struct RawJson
{
    std::string_view text;
};

// What is not known is std::monostate: null in JSON, empty in CSV, "-" in a table. Texts are
// UTF-8 and, like lists, live elsewhere until the record was printed.
using Cell = std::variant<std::monostate, std::string_view, std::int64_t, bool, HexNumber, std::span<const std::string>,
                          RawJson, NoField>;

// A field for JSON and CSV (name) and for a table (title).
struct Column
{
    std::string name;
    std::string title;
    bool alignRight = false;
};

// A field of records of one kind; an array of these is all that any form of output knows about them.
template <class Record>
struct Field
{
    const char* name;
    const char* title;
    unsigned tablePosition; // a table shows its columns in this order
    bool alignRight;
    Cell (*cell)(const Record&);
};
