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
#include <unordered_map>

namespace {

// Places in any number, asked for together.
class CPlaceSet
{
public:
    void Add(const Place& place) { places.push_back(place); }
    void Add(const CPlaceSet& other) { places.insert(places.end(), other.places.begin(), other.places.end()); }
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

struct Asked
{
    std::string text; // UTF-8
    bool isAddress = false;
    CPlaceSet places = {};
};

std::vector<Asked> ReadAll(const std::vector<std::string>& arguments)
{
    std::vector<Asked> all;
    for (const std::string& argument : arguments) {
        Asked& asked = all.emplace_back(Asked{Utf8FromArgument(argument)});
        if (const std::optional<Place> place = ReadPlace(asked.text))
            asked.places.Add(*place);
        else
            asked.isAddress = true;
    }
    return all;
}

// Adds to places that are named by an address where its symbols lie; only variables have one. Raises CHostError for a
// text that no symbol has as its address and that does not look like one either.
void FindAddresses(const CProject& project, std::vector<Asked>& all)
{
    struct Address
    {
        bool isKnown = false;
        CPlaceSet places = {};
    };
    std::unordered_map<std::string, Address> addresses; // upper case
    for (const Asked& asked : all)
        if (asked.isAddress)
            addresses.try_emplace(UpperName(asked.text));
    if (addresses.empty())
        return;
    addresses.erase(""); // what has no address has no empty one
    WalkOptions variables;
    variables.branches = true;
    variables.below = false;
    for (CWalk walk(project, variables); walk.Next();) {
        const auto found = addresses.find(UpperName(std::string(walk.Current().address)));
        if (found == addresses.end())
            continue;
        found->second.isKnown = true;
        if (const std::optional<Place> place = PlaceOf(walk.Current()))
            found->second.places.Add(*place);
    }
    for (Asked& asked : all) {
        if (!asked.isAddress)
            continue;
        const Address& address = addresses[UpperName(asked.text)];
        if (!address.isKnown && !asked.text.starts_with('%'))
            throw CHostError("the place " + asked.text +
                             " is neither BLOCK:OFFSET, BLOCK:OFFSET-END, BLOCK:OFFSET.BIT (bits 0 to 15) nor an "
                             "address, such as %MW10, of a symbol");
        asked.places = address.places;
    }
}

// The symbols that touch what is asked for.
CRowStore Collect(CWalk& walk, std::vector<Asked>& all)
{
    CPlaceSet wanted;
    for (Asked& asked : all) {
        wanted.Add(asked.places);
        asked.places.Sort();
    }
    wanted.Sort();
    CRowStore kept;
    while (!wanted.IsEmpty() && walk.Next())
        if (const std::optional<Place> place = PlaceOf(walk.Current()); place && wanted.Touches(*place))
            kept.Add(walk.Current());
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

int AtCommand(CLoadedExport& loaded, const AtOptions& options, COutput& output)
{
    std::vector<Asked> all = ReadAll(options.places);
    const CProject project(loaded);
    FindAddresses(project, all);
    WalkOptions everything;
    everything.branches = true;
    // No variable is lost behind a huge array; what is below them gets the rest of the room.
    everything.allVariables = true;
    everything.most = WalkOptions::kMostSymbols - std::min(WalkOptions::kMostSymbols, project.File().CountVariables());
    CWalk walk(project, everything);
    const CRowStore rows = Collect(walk, all);
    ComplainOfCut(walk.Cut());
    CRecordPrinter<Row> printer(output, options.form, RowFields());
    bool isComplete = !walk.Cut().isStopped;
    for (const Asked& asked : all)
        if (!Print(rows, asked, printer)) {
            Complain(asked.places.IsEmpty() ? "no symbol with a place has the address " + asked.text
                     : walk.Cut().isStopped ? "nothing was found at " + asked.text
                                            : "nothing lies at " + asked.text);
            isComplete = false;
        }
    printer.Finish();
    return isComplete ? kDone : kIncomplete;
}
