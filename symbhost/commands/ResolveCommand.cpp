#include "symbhost/commands/ResolveCommand.h"

#include "symbhost/Failure.h"
#include "symbhost/Text.h"
#include "symbhost/commands/NamesAsked.h"

#include <iostream>

namespace {

// Tells why names fail; reads the export for that when the first one does.
class CLazyExplainer
{
public:
    explicit CLazyExplainer(CLoadedExport& loadedExport) : loaded(loadedExport) {}

    Explanation Explain(const GivenName& name, const LookupAnswer& answer)
    {
        if (!project) {
            project.emplace(loaded);
            explainer.emplace(*project);
        }
        return ExplainGiven(*explainer, name, answer);
    }

private:
    CLoadedExport& loaded;
    std::optional<CProject> project;
    std::optional<CExplainer> explainer;
};

// The form of a table in which people read the place of a symbol.
const std::vector<Column> kTableColumns = {{"", "NAME"},       {"", "ADDRESS"},        {"", "TYPE"},
                                           {"", "KIND"},       {"", "BLOCK", true},    {"", "OFFSET", true},
                                           {"", "SIZE", true}, {"", "BIT", true},      {"", "ACCESS"},
                                           {"", "COMMENT"},    {"", "CUSTOMER STRING"}};

class CResolver
{
public:
    CResolver(CLoadedExport& loadedExport, const ResolveOptions& wanted, COutput& target)
        : loaded(loadedExport), options(wanted), output(target), names(wanted.names, std::cin), explainer(loadedExport)
    {
        const std::vector<Column> columns = options.form == OutputForm::Table ? kTableColumns : DataColumns();
        std::vector<std::size_t> order;
        for (std::size_t at = 0; at < columns.size(); ++at)
            order.push_back(at);
        writer = CRecordWriter::Make(options.form, output, columns, order);
    }

    int Run()
    {
        int status = kDone;
        while (const std::optional<GivenName> name = names.Next()) {
            const LookupAnswer answer = LookUpGiven(loaded.Table(), loaded.Sink(), *name);
            status = answer.IsResolved() ? status : kIncomplete;
            if (options.form == OutputForm::Table)
                AddToTable(*name, answer);
            else
                AddData(*name, answer);
            if (names.IsInteractive() && output.IsTerminal())
                writer->Flush();
        }
        writer->Finish();
        return status;
    }

private:
    std::vector<Column> DataColumns() const
    {
        std::vector<Column> columns;
        for (const Field<Row>& field : LookupFields())
            columns.push_back({field.name, {}, false});
        columns.push_back({"message", {}, false});
        if (options.why)
            columns.insert(columns.end(), {{"served", {}, false}, {"reason", {}, false}, {"text", {}, false}});
        if (options.form == OutputForm::Csv) {
            const std::vector<Column> more = ColumnsIn(names);
            columns.insert(columns.end(), more.begin(), more.end());
        }
        return columns;
    }

    void AddData(const GivenName& name, const LookupAnswer& answer)
    {
        constexpr std::size_t kNameAndResult = 2;
        const Row row = RowOf(answer);
        cells.clear();
        for (const Field<Row>& field : LookupFields())
            cells.push_back(row.IsServed() || cells.size() < kNameAndResult ? field.cell(row) : NoField());
        cells.push_back(answer.message.empty() ? Cell(NoField()) : std::string_view(answer.message));
        Explanation explanation;
        if (options.why) {
            explanation = explainer.Explain(name, answer);
            cells.insert(cells.end(),
                         {explanation.reason == Reason::None, std::string_view(ReasonCode(explanation.reason)),
                          std::string_view(explanation.text)});
        }
        if (options.form == OutputForm::Csv)
            AppendCellsIn(name, cells);
        writer->Add(cells);
    }

    void AddToTable(const GivenName& name, const LookupAnswer& answer)
    {
        const Row row = RowOf(answer);
        if (!row.IsServed()) {
            const Explanation explanation = explainer.Explain(name, answer);
            const std::string code = options.why ? std::string(", ") + ReasonCode(explanation.reason) : std::string();
            writer->AddNote(row.name, "not served" + code + ": " + explanation.text);
            return;
        }
        const std::string kind = std::string(row.kindName) + (row.isByReference ? " by reference" : "");
        const auto number = [](std::uint32_t value) { return Cell(std::int64_t{value}); };
        cells = {row.name,
                 row.address.empty() ? Cell() : row.address,
                 row.typeName,
                 std::string_view(kind),
                 number(row.block),
                 number(row.offset),
                 number(row.size),
                 row.isBit ? number(row.bit) : Cell(),
                 AccessText(row.accessRights),
                 row.comment,
                 row.customerString};
        writer->Add(cells);
    }

    CLoadedExport& loaded;
    const ResolveOptions& options;
    COutput& output;
    CNameList names;
    CLazyExplainer explainer;
    std::unique_ptr<CRecordWriter> writer;
    std::vector<Cell> cells;
};

} // namespace

int ResolveCommand(CLoadedExport& loaded, const ResolveOptions& options, COutput& output)
{
    return CResolver(loaded, options, output).Run();
}
