#include "symbhost/commands/InfoCommand.h"

#include "symbhost/Failure.h"
#include "symbhost/Text.h"
#include "symbhost/exports/CListing.h"
#include "symbhost/output/JsonText.h"

namespace {

struct Counts
{
    std::size_t leaves = 0;
    std::size_t branches = 0;
};

Counts CountVariables(CSymb& table)
{
    Counts counts;
    CListing listing(table, ListingRequest{});
    std::vector<ListingEntry> page;
    while (listing.NextPage(page)) {
        for (const ListingEntry& entry : page)
            ++(entry.isBranch ? counts.branches : counts.leaves);
    }
    if (!listing.Failure().empty())
        throw CHostError("counting the variables failed: " + listing.Failure());
    return counts;
}

} // namespace

int InfoCommand(CLoadedExport& loaded, bool json, COutput& output)
{
    CSymb& table = loaded.Table();
    const Counts counts = CountVariables(table);
    const std::string source(table.GetSourceName());
    const std::string description(table.GetDescription());
    const std::string headerName(table.GetHeaderName());
    const auto number = [](std::size_t value) { return Cell(static_cast<std::int64_t>(value)); };
    const std::size_t loadTime = static_cast<std::size_t>(loaded.LoadTime().count());
    const std::size_t variables = counts.leaves + counts.branches;
    if (json) {
        const std::vector<Column> columns = {{"export", {}},     {"typeCode", {}},   {"description", {}},
                                             {"headerName", {}}, {"loadTimeMs", {}}, {"variables", {}},
                                             {"leaves", {}},     {"branches", {}},   {"messages", {}}};
        const std::vector<Cell> cells = {
            std::string_view(source),     number(loaded.TypeCode()), std::string_view(description),
            std::string_view(headerName), number(loadTime),          number(variables),
            number(counts.leaves),        number(counts.branches),   number(loaded.Sink().Count())};
        std::string object;
        AppendJsonObject(object, columns, cells);
        output.Line(object);
    } else {
        const auto line = [&output](const char* label, const std::string& value) {
            output.Line(label + Printable(value));
        };
        line("export       ", source);
        line("type code    ", std::to_string(loaded.TypeCode()));
        line("description  ", description);
        line("header name  ", headerName);
        line("load time    ", std::to_string(loadTime) + " ms");
        line("variables    ", std::to_string(variables) + " (" + std::to_string(counts.leaves) +
                                  " of elementary and unknown types, " + std::to_string(counts.branches) +
                                  " with members)");
        line("messages     ", std::to_string(loaded.Sink().Count()));
    }
    output.Flush();
    return kDone;
}
