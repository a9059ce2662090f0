#include "symbhost/output/CTreeView.h"

#include "symbhost/Text.h"

namespace {

constexpr char kInner[] = "├── ";
constexpr char kLast[] = "└── ";
constexpr char kBesideInner[] = "│   ";
constexpr char kBelowLast[] = "    ";

} // namespace

std::string CTreeView::Print(const ListingRequest& request)
{
    const std::string root = request.path.empty() ? std::string(table.GetSourceName()) : request.path;
    output.Line(Printable(root));
    return PrintLevel(request, "", 1);
}

std::string CTreeView::PrintLevel(const ListingRequest& request, const std::string& indent, unsigned level)
{
    CListing listing(table, request);
    std::vector<ListingEntry> page;
    while (listing.NextPage(page)) {
        for (const ListingEntry& entry : page) {
            const bool isLast = &entry == &page.back() && !listing.HasMore();
            const bool isCut = entry.isBranch && level == depth; // there may be more below it
            output.Line(indent + (isLast ? kLast : kInner) + Printable(entry.name) + (isCut ? " ..." : ""));
            if (entry.isBranch && !isCut)
                PrintBelow(request, entry.symbol, indent + (isLast ? kBelowLast : kBesideInner), level + 1);
        }
        output.Flush();
    }
    return listing.Failure();
}

void CTreeView::PrintBelow(const ListingRequest& request, const std::string& symbol, const std::string& indent,
                           unsigned level)
{
    ListingRequest below = request;
    below.path = symbol;
    below.pattern = "*";
    const std::string failure = PrintLevel(below, indent, level);
    if (failure.empty())
        return;
    isComplete = false;
    output.Line(indent + kLast + "(cannot be listed: " + Printable(failure) + ")");
}
