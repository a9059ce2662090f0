#include "symbhost/output/CTable.h"

#include "symbhost/Text.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t kHeldRows = 500;
constexpr std::size_t kFewRows = 4;    // too few to tell how wide the next names are,
constexpr std::size_t kUsualName = 24; // so there is room for names like this
constexpr std::size_t kWide = 24;      // what is narrower disturbs nobody
constexpr char kGap[] = "  ";
constexpr char kCut[] = "…";

} // namespace

CTable::CTable(COutput& target, std::vector<Column> given) : output(target), columns(std::move(given)) {}

void CTable::AddRow(const std::vector<std::string>& cells)
{
    Add(Row{cells, false});
}

void CTable::AddNote(const std::string& cell, const std::string& note)
{
    Add(Row{{cell, note}, true});
}

void CTable::Add(Row row)
{
    for (std::string& cell : row.cells)
        cell = Printable(cell);
    if (!widths.empty()) {
        PrintRow(row);
        return;
    }
    pending.push_back(std::move(row));
    if (pending.size() == kHeldRows)
        Flush();
}

void CTable::Flush()
{
    if (widths.empty() && !pending.empty())
        FixWidths();
    for (const Row& row : pending)
        PrintRow(row);
    pending.clear();
    output.Flush();
}

void CTable::FixWidths()
{
    Row titles{{}, false};
    for (std::size_t at = 0; at < columns.size(); ++at) {
        titles.cells.push_back(columns[at].title);
        widths.push_back(std::max(WidthOf(at), DisplayWidth(columns[at].title)));
    }
    if (output.IsTerminal() && pending.size() < kFewRows)
        widths[0] = std::max(widths[0], kUsualName);
    PrintRow(titles);
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

void CTable::PrintRow(const Row& row)
{
    std::string line;
    for (std::size_t at = 0; at < row.cells.size(); ++at) {
        const std::string& cell = row.cells[at];
        const std::size_t width = DisplayWidth(cell);
        const std::size_t padding = widths[at] > width ? widths[at] - width : 0;
        const bool isRight = columns[at].alignRight && !row.isNote;
        line += at == 0 ? "" : kGap;
        line.append(isRight ? padding : 0, ' ');
        line += cell;
        line.append(isRight ? 0 : padding, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    if (output.IsTerminal() && DisplayWidth(line) > output.Columns())
        line = FirstCharacters(line, output.Columns() - 1) + kCut;
    output.Line(line);
}
