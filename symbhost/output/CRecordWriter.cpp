#include "symbhost/output/CRecordWriter.h"

#include "symbhost/Text.h"
#include "symbhost/output/CTable.h"
#include "symbhost/output/JsonText.h"

#include <array>
#include <charconv>
#include <limits>
#include <utility>

namespace {

// Appends what a table or CSV shows of a cell; `unknown` stands for what is not known.
struct CAppendText
{
    std::string& target;
    std::string_view unknown;

    void operator()(std::monostate) const { target += unknown; }
    void operator()(std::string_view text) const { target += text; }
    void operator()(std::int64_t number) const
    {
        std::array<char, std::numeric_limits<std::int64_t>::digits10 + 2> digits;
        target.append(digits.data(), std::to_chars(digits.begin(), digits.end(), number).ptr);
    }
    void operator()(bool flag) const { target += flag ? "true" : "false"; }
    void operator()(HexNumber number) const { target += HexText(number.value); }
    void operator()(RawJson) const {}
    void operator()(NoField) const {}
    void operator()(std::span<const std::string> texts) const
    {
        for (const std::string& text : texts)
            target += (&text == texts.data() ? "" : "+") + text;
    }
};

class CJsonWriter final : public CRecordWriter
{
public:
    CJsonWriter(COutput& target, std::vector<Column> given) : output(target), columns(std::move(given)) {}

    void Add(std::span<const Cell> cells) override
    {
        line = std::exchange(isEmpty, false) ? "[\n  " : ",\n  ";
        AppendJsonObject(line, columns, cells);
        output.Write(line);
    }
    void Flush() override { output.Flush(); }
    void Finish() override
    {
        output.Line(isEmpty ? "[]" : "\n]");
        output.Flush();
    }

private:
    COutput& output;
    std::vector<Column> columns;
    std::string line;
    bool isEmpty = true;
};

// RFC 4180.
class CCsvWriter final : public CRecordWriter
{
public:
    CCsvWriter(COutput& target, const std::vector<Column>& columns) : output(target)
    {
        for (const Column& column : columns)
            AppendCell(column.name);
        EndLine();
    }

    void Add(std::span<const Cell> cells) override
    {
        for (const Cell& cell : cells) {
            text.clear();
            std::visit(CAppendText{text, ""}, cell);
            AppendCell(text);
        }
        EndLine();
    }
    void Flush() override { output.Flush(); }
    void Finish() override { output.Flush(); }

private:
    void AppendCell(std::string_view cell)
    {
        if (!isFirst)
            line += ',';
        isFirst = false;
        if (cell.find_first_of("\",\r\n") == std::string_view::npos) {
            if (IsPlain(cell))
                line += cell;
            else
                line += ValidUtf8(cell);
            return;
        }
        line += '"';
        for (const char c : ValidUtf8(cell)) {
            line += c;
            if (c == '"')
                line += c;
        }
        line += '"';
    }
    void EndLine()
    {
        line += "\r\n";
        output.Write(line);
        line.clear();
        isFirst = true;
    }

    COutput& output;
    std::string line;
    std::string text; // of a cell
    bool isFirst = true;
};

class CTableWriter final : public CRecordWriter
{
public:
    CTableWriter(COutput& target, const std::vector<Column>& columns, const std::vector<std::size_t>& shown)
        : order(shown), table(target, TitlesOf(columns, shown)), made(shown.size()), texts(shown.size())
    {}

    void Add(std::span<const Cell> cells) override
    {
        for (std::size_t at = 0; at < order.size(); ++at) {
            const Cell& cell = cells[order[at]];
            if (const auto* text = std::get_if<std::string_view>(&cell)) {
                texts[at] = *text;
                continue;
            }
            made[at].clear();
            std::visit(CAppendText{made[at], "-"}, cell);
            texts[at] = made[at];
        }
        table.AddRow(texts);
    }
    void AddNote(std::string_view first, std::string_view text) override { table.AddNote(first, text); }
    void Flush() override { table.Flush(); }
    void Finish() override { table.Flush(); }

private:
    static std::vector<CTable::Column> TitlesOf(const std::vector<Column>& columns,
                                                const std::vector<std::size_t>& order)
    {
        std::vector<CTable::Column> titles;
        titles.reserve(order.size());
        for (const std::size_t at : order)
            titles.push_back({columns[at].title, columns[at].alignRight});
        return titles;
    }

    std::vector<std::size_t> order;
    CTable table;
    std::vector<std::string> made;       // of the cells that are no texts
    std::vector<std::string_view> texts; // of a row
};

} // namespace

void CRecordWriter::AddNote(std::string_view, std::string_view) {}

std::unique_ptr<CRecordWriter> CRecordWriter::Make(OutputForm form, COutput& output, std::vector<Column> columns,
                                                   const std::vector<std::size_t>& order)
{
    switch (form) {
    case OutputForm::Json:
        return std::make_unique<CJsonWriter>(output, std::move(columns));
    case OutputForm::Csv:
        return std::make_unique<CCsvWriter>(output, columns);
    case OutputForm::Table:
        break;
    }
    return std::make_unique<CTableWriter>(output, columns, order);
}
