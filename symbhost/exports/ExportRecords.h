// What stands in an export. Texts are UTF-8, cut as the plug-in cuts them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// A property such as <attribute name="Size" value="2"/>: its number as the plug-in reads it; nothing when it is absent.
using ExportNumber = std::optional<std::int32_t>;

// A variable, or a member of a type.
struct ExportItem
{
    std::string name;
    std::string typeName;
    std::string address; // topologicalAddress
    std::string comment;
    std::string customerString;
    ExportNumber block;           // AreaBlock
    ExportNumber offset;          // AreaOffset, bytes
    ExportNumber size;            // Size, bytes
    ExportNumber bit;             // ExtractBit
    ExportNumber accessRight;     // RequestAccessRight
    ExportNumber hidden;          // IsVariableHidden
    bool hasCutText = false;      // a text is longer than the plug-in keeps
    bool hasReplacedText = false; // U+FFFD stands in a text

    // The access rights that a host gets: 1 read, 2 write, 3 both, 0 none.
    std::uint16_t AccessRights() const;
};

// A child element of a type that holds members: the structure, or a section of a function block.
struct ExportSection
{
    std::string tag;
    std::vector<ExportItem> members;
};

struct ExportType
{
    enum class Kind
    {
        Structure, // no array, perhaps no structure either
        Array,
        FunctionBlock
    };

    std::string name;
    Kind kind = Kind::Structure;
    std::string declaration;             // of an array
    std::vector<ExportSection> sections; // of a function block every child, a section or not
    bool hasCutText = false;             // in name or declaration
    bool hasReplacedText = false;
};
