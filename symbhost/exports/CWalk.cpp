#include "symbhost/exports/CWalk.h"

#include "symbhost/exports/ListedReason.h"
#include "symbhost/exports/UpperName.h"
#include "symbkds/model/ElementaryTypes.h"

#include <algorithm>
#include <utility>

namespace {

// A path without its last step; empty for a plain name.
std::string ParentOf(const std::string& path)
{
    const std::size_t end = path.find_last_of(".[");
    return end == std::string::npos ? std::string() : path.substr(0, end);
}

} // namespace

CWalk::CWalk(const CProject& walked, const WalkOptions& wanted) : project(walked), options(wanted)
{
    if (options.path)
        Begin(*options.path);
    else
        levels.push_back({CListing(project.Table(), {}), {}, std::string()});
}

void CWalk::Begin(const std::string& path)
{
    isFound = !path.empty(); // which a listing takes for all variables
    if (!isFound)
        return;
    ListingEntry entry{path, path, true, false}; // as far as is known
    std::string parentType;
    root = project.FindRoot(entry.symbol);
    if (!root) {
        const std::string parent = ParentOf(entry.symbol);
        Describe({parent, parent, true, false}, {}, project.LookUp(parent));
        parentType = upperType.value_or(std::string());
        entry.name = entry.symbol.substr(std::min(parent.size() + 1, entry.symbol.size()));
    }
    const bool isUnreachable = IsOutOfReach(path);
    Describe(entry, parentType, LookUp(entry.symbol, isUnreachable));
    const bool isListed = !isUnreachable && Enter(entry.symbol);
    std::vector<ListingEntry> above;
    if (!isListed) {
        if (row.IsServed())
            entry.isBranch = !FindElementaryType(row.typeName, NameCase::Ignored);
        else if (root && root->isListed)
            entry.isBranch = root->isBranch;
        else if (const ListingEntry* found = FindAbove(path, above))
            entry.isBranch = found->isBranch;
        else
            isFound = false;
    }
    row.isBranch = entry.isBranch;
    SetReason(entry, entry.isBranch && !isListed);
    hasRow = isFound && (options.branches || !entry.isBranch);
}

bool CWalk::IsOutOfReach(const std::string& path) const
{
    const bool isAsVariable = root && root->isListed && IsUnreachable(path, NameOf::Variable);
    const std::size_t step = ParentOf(path).size() + 1;
    const bool isAsMember = step < path.size() && IsUnreachable(std::string_view(path).substr(step), NameOf::Member);
    if (!isAsVariable && !isAsMember)
        return false; // without a search
    std::vector<ListingEntry> above;
    return FindAbove(path, above) ? isAsMember : isAsVariable;
}

const ListingEntry* CWalk::FindAbove(const std::string& path, std::vector<ListingEntry>& page) const
{
    ListingRequest request;
    request.path = ParentOf(path);
    if (request.path.empty())
        return nullptr;
    const std::string wanted = UpperName(path);
    CListing listing(project.Table(), request);
    while (listing.NextPage(page))
        for (const ListingEntry& entry : page)
            if (UpperName(entry.symbol) == wanted)
                return &entry;
    return nullptr;
}

bool CWalk::Next()
{
    while (!std::exchange(hasRow, false)) {
        if (levels.empty())
            return false;
        Level& level = levels.back();
        if (level.position == level.page.size()) {
            level.position = 0;
            if (!level.listing.NextPage(level.page))
                Leave();
            continue;
        }
        const ListingEntry entry = std::move(level.page[level.position++]);
        if (entry.isElement && options.elements != 0 && level.entries >= options.elements) {
            levels.pop_back();
            continue;
        }
        ++level.entries;
        const bool isCounted = !options.allVariables || levels.size() > 1;
        if (isCounted && visited++ == options.most) {
            Stop();
            continue;
        }
        Visit(entry);
    }
    return true;
}

void CWalk::Visit(const ListingEntry& entry)
{
    const NameOf what = levels.back().path.empty() ? NameOf::Variable : NameOf::Member;
    const bool isUnreachable = !entry.isElement && IsUnreachable(entry.name, what);
    hasRow = options.branches || !entry.isBranch;
    if (!hasRow && what == NameOf::Variable)
        Pass();
    else
        Describe(entry, entry.isBranch ? TypeOf(levels.back()) : std::string(), LookUp(entry.symbol, isUnreachable));
    bool hasUnknownType = false;
    if (entry.isBranch && options.below && !isUnreachable) {
        if (StandsAbove(upperType))
            NoteCut(entry.symbol, "its type " + *upperType + " stands above it");
        else
            hasUnknownType = !Enter(entry.symbol);
    }
    if (hasRow)
        SetReason(entry, hasUnknownType);
}

void CWalk::Pass()
{
    row = {};
    answer = {};
    upperType.reset();
}

const std::string& CWalk::TypeOf(Level& level)
{
    if (!level.upperType)
        level.upperType = UpperName(project.FindListedType(level.path));
    return *level.upperType;
}

bool CWalk::StandsAbove(const std::optional<std::string>& type)
{
    return type && !type->empty() && std::ranges::any_of(levels, [&](Level& level) { return TypeOf(level) == *type; });
}

LookupAnswer CWalk::LookUp(const std::string& symbol, bool isUnreachable) const
{
    LookupAnswer looked = project.LookUp(symbol);
    if (isUnreachable && looked.IsResolved()) // with another symbol
        looked = {.name = symbol, .result = CSymb::kLookupFailed};
    return looked;
}

void CWalk::Describe(const ListingEntry& entry, const std::string& parentType, LookupAnswer&& looked)
{
    root.reset();
    answer = std::move(looked);
    row = RowOf(answer);
    row.isBranch = entry.isBranch;
    if (!row.IsServed() && entry.name == entry.symbol)
        root = levels.empty() ? project.FindRoot(entry.symbol) : project.FindListedRoot(entry.symbol, entry.isBranch);
    if (root)
        AddExport(row, root->item);
    if (entry.isBranch)
        upperType = UpperName(row.known != Row::Known::Nothing ? std::string(row.typeName)
                                                               : project.MemberType(parentType, entry.name));
}

void CWalk::SetReason(const ListingEntry& entry, bool hasUnknownType)
{
    if (row.IsServed())
        return;
    row.reason =
        root ? ReasonOfRoot(answer, root->item, entry.isBranch)
             : ReasonOfMember(answer, entry.isElement ? std::string_view("element") : entry.name, hasUnknownType);
}

bool CWalk::Enter(const std::string& symbol)
{
    ListingRequest request;
    request.path = symbol;
    Level level{CListing(project.Table(), request), symbol, upperType};
    if (level.listing.NextPage(level.page)) {
        levels.push_back(std::move(level));
        return true;
    }
    const std::string& failure = level.listing.Failure();
    const bool isTooDeep = !answer.IsResolved() && IsNoPath(answer);
    if (isTooDeep)
        NoteCut(symbol, "no path has more steps");
    else if (failure != BrowseFailure(E_INVALIDARG))
        NoteCut(symbol, failure);
    return false;
}

void CWalk::Leave()
{
    const Level level = std::move(levels.back());
    levels.pop_back();
    if (!level.listing.Failure().empty())
        NoteCut(level.path, level.listing.Failure());
}

void CWalk::Stop()
{
    cut.isStopped = true;
    options.below = false;
    const std::size_t kept = options.allVariables ? 1 : 0;
    while (levels.size() > kept)
        levels.pop_back();
}

void CWalk::NoteCut(const std::string& symbol, const std::string& why)
{
    if (cut.count++ == 0) {
        cut.first = symbol;
        cut.why = why;
    }
}
