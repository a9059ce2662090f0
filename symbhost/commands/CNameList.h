#pragma once

#include "symbhost/commands/CTableInput.h"

#include <fstream>
#include <istream>
#include <optional>
#include <string>
#include <vector>

// Where names come from, as the command line says.
struct NameSource
{
    std::vector<std::string> names; // "-" stands for the lines of standard input
    std::string file;               // --from; "-" is standard input, empty: none
    std::string column;             // --column; empty: every line of the file is a name
};

struct GivenName
{
    std::string name;              // UTF-8, without blanks around
    std::string_view fault;        // why it can be no name; empty: it may be one
    std::vector<std::string> more; // the cells of the other columns
};

// The names that a command works on, one after the other: those of the command line, then those of the file.
class CNameList
{
public:
    // Raises CHostError when the file cannot be opened or has no such column.
    CNameList(const NameSource& given, std::istream& standardInput);

    // Nothing at the end. Raises CHostError when the file cannot be read.
    std::optional<GivenName> Next();
    // The titles of the other columns.
    const std::vector<std::string>& MoreColumns() const { return moreColumns; }
    // Whether names come from standard input, perhaps from someone who types them and waits for answers.
    bool IsInteractive() const { return typed || list == &standard; }

private:
    void ReadHeader();
    std::optional<GivenName> ReadLine(CTableInput& input, std::istream& stream);
    std::optional<GivenName> ReadRow();

    NameSource source;
    std::istream& standard;
    std::optional<CTableInput> typed; // standard input in place of "-"
    std::ifstream opened;
    std::istream* list = nullptr; // the file of --from
    std::optional<CTableInput> table;
    std::size_t position = 0; // among the names
    std::size_t column = 0;
    std::vector<std::string> moreColumns;
};
