#include "symbhost/commands/BrowseCommand.h"

#include "symbhost/Failure.h"
#include "symbhost/exports/FieldListing.h"
#include "symbhost/output/CJsonArray.h"
#include "symbhost/output/CTable.h"
#include "symbhost/output/CTreeView.h"

namespace {

const char* KindText(const ListingEntry& entry)
{
    return entry.isBranch ? "branch" : "leaf";
}

// Tells why a listing is not complete.
int Report(const ListingRequest& request, const std::string& failure)
{
    if (failure.empty())
        return kDone;
    Complain((request.path.empty() ? std::string("listing the variables") : "listing " + request.path) +
             " failed: " + failure);
    return kIncomplete;
}

class CPagePrinter
{
public:
    CPagePrinter(COutput& target, bool markPages) : output(target), showPages(markPages) {}

    void Print(const std::string& startsAt, const std::vector<ListingEntry>& page)
    {
        ++number;
        if (showPages)
            output.Line("-- page " + std::to_string(number) +
                        (startsAt.empty() ? "" : ", from " + Printable(startsAt)));
        for (const ListingEntry& entry : page)
            output.Line((entry.isBranch ? "branch  " : "leaf    ") + Printable(entry.symbol));
        output.Flush();
    }

private:
    COutput& output;
    bool showPages;
    unsigned number = 0;
};

int PrintLines(CListing& listing, const BrowseOptions& options, COutput& output)
{
    CPagePrinter printer(output, options.page.has_value());
    std::vector<ListingEntry> page;
    for (std::string startsAt; listing.NextPage(page); startsAt = listing.ResumeAt())
        printer.Print(startsAt, page);
    return Report(options.request, listing.Failure());
}

int PrintJson(CListing& listing, const BrowseOptions& options, COutput& output)
{
    CJsonArray array(output);
    std::vector<ListingEntry> page;
    while (listing.NextPage(page)) {
        for (const ListingEntry& entry : page)
            array.Add({{"name", entry.name}, {"itemId", entry.symbol}, {"kind", KindText(entry)}});
    }
    array.Finish();
    return Report(options.request, listing.Failure());
}

void PrintFieldTable(const std::vector<FieldEntry>& entries, const std::string& codes, COutput& output)
{
    std::vector<CTable::Column> columns = {{"NAME"}};
    for (const char code : codes)
        columns.push_back({code == 'A' ? "ADDRESS" : "COMMENT"});
    CTable table(output, columns);
    for (const FieldEntry& entry : entries) {
        std::vector<std::string> cells = {entry.name};
        cells.insert(cells.end(), entry.fields.begin(), entry.fields.end());
        table.AddRow(cells);
    }
    table.Finish();
}

void PrintFieldJson(const std::vector<FieldEntry>& entries, const std::string& codes, COutput& output)
{
    CJsonArray array(output);
    for (const FieldEntry& entry : entries) {
        nlohmann::ordered_json json = {{"name", entry.name}};
        for (std::size_t at = 0; at < codes.size(); ++at)
            json[codes[at] == 'A' ? "address" : "comment"] = entry.fields[at];
        array.Add(json);
    }
    array.Finish();
}

int PrintFields(CSymb& table, const BrowseOptions& options, COutput& output)
{
    std::vector<FieldEntry> entries;
    const HRESULT result = ListFields(table, options.request, options.fields, entries);
    if (options.json)
        PrintFieldJson(entries, options.fields, output);
    else
        PrintFieldTable(entries, options.fields, output);
    return Report(options.request, BrowseFailure(result));
}

} // namespace

int BrowseCommand(CLoadedExport& loaded, const BrowseOptions& options, COutput& output)
{
    if (!options.fields.empty())
        return PrintFields(loaded.Table(), options, output);
    if (options.tree) {
        CTreeView tree(loaded.Table(), output, options.depth);
        const std::string failure = tree.Print(options.request);
        return failure.empty() && !tree.IsComplete() ? kIncomplete : Report(options.request, failure);
    }
    ListingRequest request = options.request;
    request.pageSize = options.page.value_or(request.pageSize);
    CListing listing(loaded.Table(), request);
    return options.json ? PrintJson(listing, options, output) : PrintLines(listing, options, output);
}
