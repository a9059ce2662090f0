#include "symbhost/commands/AtCommand.h"

#include "symbhost/Failure.h"
#include "symbhost/Text.h"
#include "symbhost/commands/WalkCutNotice.h"
#include "symbhost/exports/CRowStore.h"
#include "symbhost/exports/CWalk.h"
#include "symbhost/exports/Place.h"
#include "symbhost/exports/UpperName.h"
#include "symbhost/output/CRecordPrinter.h"

#include <algorithm>
#include <tuple>

namespace {

// Places in any number, asked for together.
class CPlaceSet
{
public:
    void Add(const Place& place) { places.push_back(place); }
    bool IsEmpty() const { return places.empty(); }

    // The last call before the questions.
    void Sort()
    {
        std::ranges::sort(places, {}, [](const Place& place) { return std::tuple(place.block, place.first); });
        std::vector<Place> merged;
        for (const Place& place : places) {
            const bool isJoined =
                !merged.empty() && merged.back().block == place.block && merged.back().last >= place.first;
            if (isJoined)
                merged.back().last = std::max(merged.back().last, place.last);
            else
                merged.push_back(place);
        }
        places = std::move(merged);
    }

    bool Touches(const Place& place) const
    {
        // They are apart from each other, so the last that begins in time is the one that reaches furthest.
        const auto behind = std::ranges::upper_bound(places, std::tuple(place.block, place.last), {},
                                                     [](const Place& p) { return std::tuple(p.block, p.first); });
        return behind != places.begin() && std::prev(behind)->block == place.block &&
               std::prev(behind)->last >= place.first;
    }

private:
    std::vector<Place> places;
};

// Whether a text that is no BLOCK:OFFSET was not meant to be one either.
bool IsAddress(std::string_view text)
{
    if (text.starts_with('%'))
        return true;
    return !text.empty() && text.find(':') == std::string_view::npos && (text.front() < '0' || text.front() > '9');
}

struct Asked
{
    std::string text;         // UTF-8
    std::string upperAddress; // empty: BLOCK:OFFSET
    CPlaceSet places;
};

std::vector<Asked> ReadAll(const std::vector<std::string>& arguments)
{
    std::vector<Asked> all;
    for (const std::string& argument : arguments) {
        Asked asked{Utf8FromArgument(argument), {}, {}};
        if (const std::optional<Place> place = ReadPlace(asked.text))
            asked.places.Add(*place);
        else
            asked.upperAddress = UpperName(asked.text);
        all.push_back(std::move(asked));
    }
    return all;
}

// The symbols that may touch what is asked for. Adds to places that are named by an address where its symbols lie.
CRowStore Collect(CWalk& walk, std::vector<Asked>& all)
{
    const bool hasAddresses = std::ranges::any_of(all, [](const Asked& asked) { return !asked.upperAddress.empty(); });
    CRowStore kept;
    while (walk.Next()) {
        const Row& row = walk.Current();
        const std::optional<Place> place = PlaceOf(row);
        if (!place)
            continue;
        bool isWanted = hasAddresses;
        const std::string upperAddress = hasAddresses ? UpperName(std::string(row.address)) : std::string();
        for (Asked& asked : all) {
            if (asked.upperAddress.empty())
                isWanted = isWanted || asked.places.Touches(*place);
            else if (asked.upperAddress == upperAddress)
                asked.places.Add(*place);
        }
        if (isWanted)
            kept.Add(row);
    }
    for (Asked& asked : all)
        asked.places.Sort();
    return kept;
}

bool Print(const CRowStore& rows, const Asked& asked, CRecordPrinter<Row>& printer)
{
    std::vector<std::pair<std::uint64_t, std::size_t>> found; // by size, then in listing order
    for (std::size_t index = 0; index < rows.Count(); ++index)
        if (const std::optional<Place> place = PlaceOf(rows.FactsAt(index)); asked.places.Touches(*place))
            found.emplace_back(place->Bits(), index);
    std::ranges::sort(found);
    for (const auto& [size, index] : found)
        printer.Add(rows.At(index));
    return !found.empty();
}

} // namespace

std::string PlaceProblem(const std::string& place)
{
    const std::string text = Utf8FromArgument(place);
    if (ReadPlace(text) || IsAddress(text))
        return {};
    return "the place " + Printable(text) +
           " is neither BLOCK:OFFSET, BLOCK:OFFSET-END, BLOCK:OFFSET.BIT (bits 0 to 15) nor an address such as %MW10";
}

int AtCommand(CLoadedExport& loaded, const AtOptions& options, COutput& output)
{
    std::vector<Asked> all = ReadAll(options.places);
    const CProject project(loaded);
    WalkOptions everything;
    everything.branches = true;
    CWalk walk(project, everything);
    const CRowStore rows = Collect(walk, all);
    ComplainOfCut(walk.Cut());
    CRecordPrinter<Row> printer(output, options.form, RowFields());
    bool isComplete = true;
    for (const Asked& asked : all)
        if (!Print(rows, asked, printer)) {
            Complain(asked.places.IsEmpty() ? "no symbol with a place has the address " + asked.text
                                            : "nothing lies at " + asked.text);
            isComplete = false;
        }
    printer.Finish();
    return isComplete ? kDone : kIncomplete;
}
