#include "symbhost/commands/InfoCommand.h"

#include "symbhost/Failure.h"
#include "symbhost/exports/CListing.h"

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

int InfoCommand(CLoadedExport& loaded, COutput& output)
{
    CSymb& table = loaded.Table();
    const Counts counts = CountVariables(table);
    const auto line = [&output](const char* label, const std::string& value) { output.Line(label + Printable(value)); };
    line("export       ", std::string(table.GetSourceName()));
    line("type code    ", std::to_string(loaded.TypeCode()));
    line("description  ", std::string(table.GetDescription()));
    line("header name  ", std::string(table.GetHeaderName()));
    line("load time    ", std::to_string(loaded.LoadTime().count()) + " ms");
    line("variables    ", std::to_string(counts.leaves + counts.branches) + " (" + std::to_string(counts.leaves) +
                              " of elementary and unknown types, " + std::to_string(counts.branches) +
                              " with members)");
    line("messages     ", std::to_string(loaded.Sink().Count()));
    output.Flush();
    return kDone;
}
