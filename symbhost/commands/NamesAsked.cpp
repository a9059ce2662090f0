#include "symbhost/commands/NamesAsked.h"

std::vector<Column> ColumnsIn(const CNameList& names)
{
    std::vector<Column> columns;
    for (const std::string& title : names.MoreColumns())
        columns.push_back({"in_" + title, {}, false});
    return columns;
}

void AppendCellsIn(const GivenName& name, std::vector<Cell>& cells)
{
    for (const std::string& text : name.more)
        cells.emplace_back(std::string_view(text));
}

LookupAnswer LookUpGiven(CSymb& table, CConsoleSink& sink, const GivenName& name)
{
    if (name.fault.empty())
        return LookUp(table, sink, name.name);
    LookupAnswer refused{};
    refused.name = name.name;
    refused.result = E_INVALIDARG;
    refused.message = name.fault;
    return refused;
}

Explanation ExplainGiven(CExplainer& explainer, const GivenName& name, const LookupAnswer& answer)
{
    if (!name.fault.empty())
        return {Reason::NotAPath, std::string(name.fault)};
    return explainer.Explain(answer);
}
