#include "symbhost/output/CRecordWriter.h"

#include "symbhost/Text.h"
#include "symbhost/output/CTable.h"
#include "symbhost/output/JsonText.h"

#include <utility>

namespace {

// What a table or CSV shows of a cell; `unknown` stands for what is not known.
struct CCellText
{
    std::string_view unknown;

    std::string operator()(std::monostate) const { return std::string(unknown); }
    std::string operator()(std::string_view text) const { return std::string(text); }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(bool flag) const { return flag ? "true" : "false"; }
    std::string operator()(HexNumber number) const { return HexText(number.value); }
    std::string operator()(RawJson) const { return {}; }
    std::string operator()(NoField) const { return {}; }
    std::string operator()(std::span<const std::string> texts) const
    {
        std::string joined;
        for (const std::string& text : texts)
            joined += (&text == texts.data() ? "" : "+") + text;
        return joined;
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
        for (const Cell& cell : cells)
            AppendCell(std::visit(CCellText{""}, cell));
        EndLine();
    }
    void Flush() override { output.Flush(); }
    void Finish() override { output.Flush(); }

private:
    void AppendCell(const std::string& text)
    {
        if (!isFirst)
            line += ',';
        isFirst = false;
        if (text.find_first_of("\",\r\n") == std::string::npos) {
            line += ValidUtf8(text);
            return;
        }
        line += '"';
        for (const char c : ValidUtf8(text)) {
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
    bool isFirst = true;
};

class CTableWriter final : public CRecordWriter
{
public:
    CTableWriter(COutput& target, const std::vector<Column>& columns, const std::vector<std::size_t>& shown)
        : order(shown), table(target, TitlesOf(columns, shown))
    {}

    void Add(std::span<const Cell> cells) override
    {
        std::vector<std::string> texts;
        for (const std::size_t at : order)
            texts.push_back(std::visit(CCellText{"-"}, cells[at]));
        table.AddRow(texts);
    }
    void AddNote(std::string_view first, std::string_view text) override
    {
        table.AddNote(std::string(first), std::string(text));
    }
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
