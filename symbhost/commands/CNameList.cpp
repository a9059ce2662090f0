#include "symbhost/commands/CNameList.h"

#include "symbhost/CNearestNames.h"
#include "symbhost/Failure.h"
#include "symbhost/Text.h"
#include "symbhost/exports/UpperName.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t kShownOfLongName = 60; // bytes

std::string Trimmed(std::string text)
{
    constexpr char kBlanks[] = " \t";
    text.erase(text.find_last_not_of(kBlanks) + 1);
    text.erase(0, text.find_first_not_of(kBlanks));
    return text;
}

// Why a text that was read as a whole can be no name; empty when it may be one.
std::string_view FaultOf(const std::string& name)
{
    if (name.find('\0') != std::string::npos)
        return "the name holds a null";
    return IsPlain(name) || ValidUtf8(name) == name ? std::string_view() : "the name is no UTF-8";
}

void CheckReading(const std::istream& stream, const std::string& name)
{
    if (stream.bad())
        throw CHostError("the list " + (name == "-" ? "on standard input" : name) + " cannot be read");
}

} // namespace

CNameList::CNameList(const NameSource& given, std::istream& standardInput) : source(given), standard(standardInput)
{
    if (source.file.empty()) {
        if (!source.column.empty())
            throw CHostError("--column names a column of the list that --from reads");
        return;
    }
    list = source.file == "-" ? &standard : &opened;
    if (list == &opened) {
        opened.open(source.file, std::ios::binary);
        if (!opened)
            throw CHostError("the list " + source.file + " cannot be opened");
    }
    table.emplace(*list);
    if (!source.column.empty())
        ReadHeader();
}

void CNameList::ReadHeader()
{
    CTableInput::Record header;
    table->NextRow(header);
    CheckReading(*list, source.file);
    const std::string wanted = UpperName(Utf8FromArgument(source.column));
    const auto isWanted = [&wanted](const std::string& title) { return UpperName(Trimmed(title)) == wanted; };
    const auto found = std::ranges::find_if(header.cells, isWanted);
    if (found == header.cells.end())
        throw CHostError("the list has no column " + source.column + "; it has: " + JoinNames(header.cells, 20));
    column = static_cast<std::size_t>(found - header.cells.begin());
    moreColumns = std::move(header.cells);
    moreColumns.erase(moreColumns.begin() + static_cast<std::ptrdiff_t>(column));
}

std::optional<GivenName> CNameList::Next()
{
    for (; position < source.names.size(); ++position) {
        if (source.names[position] != "-")
            return GivenName{Utf8FromArgument(source.names[position++]), {}, {}};
        if (!typed)
            typed.emplace(standard);
        if (std::optional<GivenName> name = ReadLine(*typed, standard))
            return name; // "-" stays the current name until its input ends
        typed.reset();
    }
    if (!table)
        return std::nullopt;
    return source.column.empty() ? ReadLine(*table, *list) : ReadRow();
}

std::optional<GivenName> CNameList::ReadLine(CTableInput& input, std::istream& stream)
{
    CTableInput::Record line;
    while (input.NextLine(line)) {
        std::string name =
            Trimmed(line.cells.front().substr(0, line.fault.empty() ? std::string::npos : kShownOfLongName));
        if (name.empty())
            continue;
        const std::string_view fault = line.fault.empty() ? FaultOf(name) : line.fault;
        return GivenName{std::move(name), fault, {}};
    }
    CheckReading(stream, &stream == &standard ? "-" : source.file);
    return std::nullopt;
}

std::optional<GivenName> CNameList::ReadRow()
{
    CTableInput::Record row;
    if (!table->NextRow(row)) {
        CheckReading(*list, source.file);
        return std::nullopt;
    }
    row.cells.resize(moreColumns.size() + 1);
    GivenName name{Trimmed(std::move(row.cells[column])), row.fault, std::move(row.cells)};
    name.more.erase(name.more.begin() + static_cast<std::ptrdiff_t>(column));
    if (name.fault.empty())
        name.fault = FaultOf(name.name);
    else
        name.name.resize(std::min(name.name.size(), kShownOfLongName));
    return name;
}
