#include "symbhost/commands/BrowseCommand.h"

#include "symbhost/Failure.h"
#include "symbhost/Text.h"
#include "symbhost/exports/FieldListing.h"
#include "symbhost/output/CRecordPrinter.h"
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
             (failure.starts_with("0x") ? " failed: " : " is not complete: ") + failure);
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

constexpr Field<ListingEntry> kEntryFields[] = {
    {"name", "NAME", 0, false, [](const ListingEntry& entry) -> Cell { return std::string_view(entry.name); }},
    {"itemId", "SYMBOL", 1, false, [](const ListingEntry& entry) -> Cell { return std::string_view(entry.symbol); }},
    {"kind", "KIND", 2, false, [](const ListingEntry& entry) -> Cell { return std::string_view(KindText(entry)); }},
};

int PrintRecords(CListing& listing, const BrowseOptions& options, COutput& output)
{
    CRecordPrinter<ListingEntry> printer(output, options.form, kEntryFields);
    std::vector<ListingEntry> page;
    while (listing.NextPage(page))
        for (const ListingEntry& entry : page)
            printer.Add(entry);
    printer.Finish();
    return Report(options.request, listing.Failure());
}

int PrintFields(CSymb& table, const BrowseOptions& options, COutput& output)
{
    std::vector<FieldEntry> entries;
    const HRESULT result = ListFields(table, options.request, options.fields, entries);
    std::vector<Column> columns = {{"name", "NAME"}};
    std::vector<std::size_t> order = {0};
    for (const char code : options.fields) {
        columns.push_back(code == 'A' ? Column{"address", "ADDRESS"} : Column{"comment", "COMMENT"});
        order.push_back(order.size());
    }
    const std::unique_ptr<CRecordWriter> writer = CRecordWriter::Make(options.form, output, columns, order);
    std::vector<Cell> cells;
    for (const FieldEntry& entry : entries) {
        cells = {std::string_view(entry.name)};
        for (const std::string& field : entry.fields)
            cells.emplace_back(std::string_view(field));
        writer->Add(cells);
    }
    writer->Finish();
    const bool isCut =
        SUCCEEDED(result) && entries.size() >= kListedElements && HasUnlistedElements(table, options.request.path);
    return Report(options.request, isCut ? LimitText() : BrowseFailure(result));
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
    return options.form == OutputForm::Table ? PrintLines(listing, options, output)
                                             : PrintRecords(listing, options, output);
}
