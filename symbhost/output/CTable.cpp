#include "symbhost/output/CTable.h"

#include "symbhost/Text.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t kBlockRows = 1000;
constexpr char kGap[] = "  ";

} // namespace

CTable::CTable(COutput& target, std::vector<Column> given)
    : output(target), columns(std::move(given)), widths(columns.size(), 0)
{}

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
    if (!std::exchange(hasTitles, true)) {
        Row titles{{}, false};
        for (const Column& column : columns)
            titles.cells.push_back(column.title);
        Add(std::move(titles));
    }
    for (std::size_t at = 0; at < row.cells.size(); ++at) {
        row.cells[at] = Printable(row.cells[at]);
        if (!row.isNote || at == 0)
            widths[at] = std::max(widths[at], DisplayWidth(row.cells[at]));
    }
    pending.push_back(std::move(row));
    if (pending.size() > kBlockRows)
        Finish();
}

void CTable::Finish()
{
    for (const Row& row : pending)
        PrintRow(row);
    pending.clear();
    output.Flush();
}

void CTable::PrintRow(const Row& row)
{
    std::string line;
    for (std::size_t at = 0; at < row.cells.size(); ++at) {
        const std::string& cell = row.cells[at];
        const std::size_t width = DisplayWidth(cell);
        const std::string padding(widths[at] > width ? widths[at] - width : 0, ' ');
        line += at == 0 ? "" : kGap;
        line += columns[at].alignRight && !row.isNote ? padding + cell : cell + padding;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    output.Line(line);
}
