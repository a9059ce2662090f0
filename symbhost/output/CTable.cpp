#include "symbhost/output/CTable.h"

#include "symbhost/Text.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t kHeldRows = 500;
constexpr std::size_t kFewRows = 4;    // too few to tell how wide the next names are,
constexpr std::size_t kUsualName = 24; // so there is room for names like this
constexpr std::size_t kWide = 24;      // what is narrower disturbs nobody
constexpr std::size_t kGap = 2;        // blanks between columns
constexpr char kCut[] = "…";

} // namespace

CTable::CTable(COutput& target, std::vector<Column> given) : output(target), columns(std::move(given)) {}

void CTable::Add(std::span<const std::string_view> cells, bool isNote)
{
    if (!widths.empty()) {
        PrintRow(cells, isNote);
        return;
    }
    Row& row = pending.emplace_back(Row{{}, isNote});
    for (const std::string_view cell : cells)
        row.cells.push_back(Printable(cell));
    if (pending.size() == kHeldRows)
        Flush();
}

void CTable::Flush()
{
    if (widths.empty() && !pending.empty())
        FixWidths();
    for (const Row& row : pending)
        PrintRow(std::vector<std::string_view>(row.cells.begin(), row.cells.end()), row.isNote);
    pending.clear();
    output.Flush();
}

void CTable::FixWidths()
{
    std::vector<std::string_view> titles;
    for (std::size_t at = 0; at < columns.size(); ++at) {
        titles.push_back(columns[at].title);
        widths.push_back(std::max(WidthOf(at), DisplayWidth(columns[at].title)));
    }
    if (output.IsTerminal() && pending.size() < kFewRows)
        widths[0] = std::max(widths[0], kUsualName);
    PrintRow(titles, false);
}

// Wide enough for nine cells of ten or so, and for all unless the widest is far wider than those.
std::size_t CTable::WidthOf(std::size_t column) const
{
    std::vector<std::size_t> cells;
    for (const Row& row : pending)
        cells.push_back(row.isNote && column > 0 ? 0 : DisplayWidth(row.cells[column]));
    std::ranges::sort(cells);
    const std::size_t most = cells[(cells.size() - 1) * 9 / 10];
    return cells.back() > std::max(kWide, 2 * most) ? most : cells.back();
}

void CTable::PrintRow(std::span<const std::string_view> cells, bool isNote)
{
    Arrange(cells, isNote, [](std::string_view cell) { return cell.size(); });
    if (!IsPlain(line)) { // most are; where umlauts or worse stand, the few cells that hold them are made printable
        std::vector<std::string_view> shown(cells.begin(), cells.end());
        std::vector<std::string> printable(cells.size());
        for (std::size_t at = 0; at < cells.size(); ++at)
            if (!IsPlain(cells[at]))
                shown[at] = printable[at] = Printable(cells[at]);
        Arrange(shown, isNote, DisplayWidth);
    }
    if (output.IsTerminal() && DisplayWidth(line) > output.Columns())
        line = FirstCharacters(line, output.Columns() - 1) + kCut;
    line += '\n';
    output.Write(line);
}

template <class Width>
void CTable::Arrange(std::span<const std::string_view> cells, bool isNote, Width&& width)
{
    std::size_t most = 0; // bytes
    for (std::size_t at = 0; at < cells.size(); ++at)
        most += widths[at] + cells[at].size() + kGap;
    line.assign(most, ' ');
    char* const begin = line.data();
    char* end = begin;      // of the last text
    std::size_t blanks = 0; // behind that
    for (std::size_t at = 0; at < cells.size(); ++at) {
        const std::string_view cell = cells[at];
        const std::size_t columnsTaken = width(cell);
        const std::size_t padding = widths[at] > columnsTaken ? widths[at] - columnsTaken : 0;
        const bool isRight = columns[at].alignRight && !isNote;
        if (!cell.empty()) {
            end = std::ranges::copy(cell, end + blanks + (isRight ? padding : 0)).out;
            blanks = 0;
        }
        blanks += (isRight && !cell.empty() ? 0 : padding) + kGap;
    }
    line.resize(static_cast<std::size_t>(end - begin));
}
