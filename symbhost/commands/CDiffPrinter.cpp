#include "symbhost/commands/CDiffPrinter.h"

#include "symbhost/Text.h"
#include "symbhost/exports/Place.h"
#include "symbhost/output/JsonText.h"

namespace {

std::vector<Cell> CellsOf(const Row* row)
{
    std::vector<Cell> cells;
    for (const Field<Row>& field : RowFields())
        cells.push_back(row ? field.cell(*row) : Cell());
    return cells;
}

std::string JsonOf(const Row* row, std::span<const Column> columns)
{
    std::string json;
    if (row)
        AppendJsonObject(json, columns, CellsOf(row));
    else
        AppendJsonCell(json, Cell());
    return json;
}

} // namespace

CDiffPrinter::CDiffPrinter(COutput& target, OutputForm wanted, const std::vector<Column>& more)
    : output(target), form(wanted)
{
    for (const Field<Row>& field : RowFields())
        rowColumns.push_back({field.name, field.title, field.alignRight});
    std::vector<Column> columns = {{"name", "", false}, {"change", "", false}};
    if (form == OutputForm::Json)
        columns.insert(columns.end(), {{"before", "", false}, {"after", "", false}});
    else
        for (const char* side : {"before_", "after_"})
            for (const Column& column : rowColumns)
                columns.push_back({side + column.name, "", false});
    if (form == OutputForm::Csv)
        columns.insert(columns.end(), more.begin(), more.end());
    if (form != OutputForm::Table)
        writer = CRecordWriter::Make(form, output, std::move(columns), {});
}

void CDiffPrinter::Add(const Row* before, const Row* after, unsigned changes, std::span<const Cell> more)
{
    ++(!before ? added : !after ? removed : changed);
    if (writer)
        PrintRecord(before, after, changes, more);
    else
        PrintLine(before, after, changes);
}

void CDiffPrinter::PrintLine(const Row* before, const Row* after, unsigned changes)
{
    if (!after) {
        output.Line("- " + Printable(before->name));
        return;
    }
    std::string line = (before ? "~ " : "+ ") + std::string(after->name);
    if (before)
        line += "  " + ChangeText(*before, *after, changes);
    else if (after->known != Row::Known::Nothing)
        line += "  " + PlaceText(*after) + "  " + std::string(after->typeName);
    output.Line(Printable(line));
}

void CDiffPrinter::PrintRecord(const Row* before, const Row* after, unsigned changes, std::span<const Cell> more)
{
    const std::vector<std::string> words = ChangeWords(changes);
    // One of the two is always there, which the analyser does not know.
    // NOLINTNEXTLINE(clang-analyzer-core.NonNullParamChecker)
    cells = {after ? after->name : before->name, std::span<const std::string>(words)};
    if (form == OutputForm::Json) {
        const std::string rows[] = {JsonOf(before, rowColumns), JsonOf(after, rowColumns)};
        cells.insert(cells.end(), {RawJson{rows[0]}, RawJson{rows[1]}});
        writer->Add(cells);
        return;
    }
    for (const Row* row : {before, after})
        for (const Cell& cell : CellsOf(row))
            cells.push_back(cell);
    cells.insert(cells.end(), more.begin(), more.end());
    writer->Add(cells);
}

void CDiffPrinter::Finish()
{
    if (writer) {
        writer->Finish();
        return;
    }
    output.Line(std::to_string(changed) + " changed, " + std::to_string(removed) + " removed, " +
                std::to_string(added) + " added");
    output.Flush();
}
