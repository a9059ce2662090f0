#include "symbhost/commands/CTableInput.h"

#include <string_view>

namespace {

bool IsLineEnd(char c)
{
    return c == '\n' || c == '\r';
}

// Adds to the last cell while the record's text stays short enough.
class CCellWriter
{
public:
    explicit CCellWriter(CTableInput::Record& target) : record(target) { record = {{""}, false}; }

    void Add(char c)
    {
        record.isTooLong = ++bytes > CTableInput::kLongestRecord;
        if (!record.isTooLong)
            record.cells.back() += c;
    }
    void NewCell()
    {
        record.isTooLong = ++bytes > CTableInput::kLongestRecord;
        if (!record.isTooLong)
            record.cells.emplace_back();
    }

private:
    CTableInput::Record& record;
    std::size_t bytes = 0;
};

} // namespace

bool CTableInput::NextLine(Record& record)
{
    CCellWriter writer(record);
    while (const std::optional<char> c = input.Next()) {
        if (!IsLineEnd(*c))
            writer.Add(*c);
        else if (!record.cells.back().empty())
            return true;
    }
    return !record.cells.back().empty();
}

template <class NextCharacter>
bool CTableInput::ReadRow(Record& record, NextCharacter&& next) const
{
    CCellWriter writer(record);
    enum class Where
    {
        CellStart,
        Cell,
        Quotes,
        BehindQuote // which ends the quotes unless another one follows
    } where = Where::CellStart;
    bool isEmpty = true;
    while (const std::optional<char> c = next()) {
        const bool isQuote = *c == '"';
        const bool isInside = where == Where::Quotes;
        if (!isInside && IsLineEnd(*c)) {
            if (!isEmpty)
                return true;
            continue;
        }
        isEmpty = false;
        if (!isInside && separator == *c) {
            writer.NewCell();
            where = Where::CellStart;
        } else if (isQuote && (isInside || where == Where::CellStart)) {
            where = isInside ? Where::BehindQuote : Where::Quotes;
        } else {
            writer.Add(*c);
            where = isInside || (isQuote && where == Where::BehindQuote) ? Where::Quotes : Where::Cell;
        }
    }
    return !isEmpty;
}

bool CTableInput::NextRow(Record& record)
{
    if (hasHeader)
        return ReadRow(record, [this] { return input.Next(); });
    hasHeader = true;
    if (!NextLine(record))
        return false;
    const std::string line = record.cells.front();
    for (const char candidate : {',', ';', '\t'})
        if (line.find(candidate) != std::string::npos)
            separator = candidate;
    return ReadRow(record, [rest = std::string_view(line)]() mutable -> std::optional<char> {
        if (rest.empty())
            return std::nullopt;
        const char c = rest.front();
        rest.remove_prefix(1);
        return c;
    });
}
