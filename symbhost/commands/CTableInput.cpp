#include "symbhost/commands/CTableInput.h"

#include <utility>

namespace {

bool IsLineEnd(char c)
{
    return c == '\n' || c == '\r';
}

// Adds to the last cell while the record's text stays short enough.
class CCellWriter
{
public:
    explicit CCellWriter(CTableInput::Record& target) : record(target) { record = {{""}, {}}; }

    void Add(char c)
    {
        if (HasRoom())
            record.cells.back() += c;
    }
    void NewCell()
    {
        if (HasRoom())
            record.cells.emplace_back();
    }

private:
    bool HasRoom()
    {
        if (++bytes > CTableInput::kLongestRecord)
            record.fault = "the line is too long for a name; this is its beginning";
        return record.fault.empty();
    }

    CTableInput::Record& record;
    std::size_t bytes = 0;
};

} // namespace

std::optional<char> CTableInput::NextCharacter()
{
    if (handedOut == again.size())
        return input.Next();
    return again[handedOut++];
}

void CTableInput::PutBack(const std::string& text)
{
    again.replace(0, handedOut, text);
    handedOut = 0;
}

bool CTableInput::NextLine(Record& record)
{
    CCellWriter writer(record);
    while (const std::optional<char> c = NextCharacter()) {
        if (!IsLineEnd(*c))
            writer.Add(*c);
        else if (!record.cells.back().empty())
            return true;
    }
    return !record.cells.back().empty();
}

bool CTableInput::ReadRow(Record& record)
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
    bool isNotClosed = false;
    // Of quotes around a line end: how far the record was there (cells: 0 without such quotes), and the text behind.
    std::size_t cellsAtEnd = 0;
    std::size_t lastBytesAtEnd = 0;
    std::string behindLine;
    while (const std::optional<char> c = NextCharacter()) {
        const bool isQuote = *c == '"';
        const bool isInside = where == Where::Quotes;
        const bool isEnd = IsLineEnd(*c);
        if (cellsAtEnd != 0)
            behindLine += *c;
        if (where == Where::BehindQuote && (isEnd || separator == *c))
            cellsAtEnd = 0; // the quotes were closed
        isNotClosed =
            cellsAtEnd != 0 && ((isInside && !record.fault.empty()) || (where == Where::BehindQuote && !isQuote));
        if (isNotClosed)
            break;
        if (isInside && isEnd && cellsAtEnd == 0) {
            cellsAtEnd = record.cells.size();
            lastBytesAtEnd = record.cells.back().size();
            behindLine.clear();
        }
        if (!isInside && isEnd) {
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
    if (!isNotClosed && where != Where::Quotes)
        return !isEmpty;
    if (cellsAtEnd != 0) {
        while (record.cells.size() > cellsAtEnd)
            record.cells.pop_back();
        record.cells.back().erase(lastBytesAtEnd);
        PutBack(behindLine);
    }
    record.fault = "a quote in the line is not closed, or holds too much";
    return true;
}

bool CTableInput::NextRow(Record& record)
{
    if (!std::exchange(hasHeader, true)) {
        if (!NextLine(record))
            return false;
        const std::string& line = record.cells.front();
        for (const char candidate : {',', ';', '\t'})
            if (line.find(candidate) != std::string::npos)
                separator = candidate;
        PutBack(line + '\n');
    }
    return ReadRow(record);
}
