#include "symbhost/exports/CListing.h"

#include "platform/win32/CodePage.h"
#include "symbhost/exports/Lookup.h"
#include "symbhost/plugin/HostMemory.h"
#include "symbkds/model/TextNumber.h"

#include <limits>
#include <utility>

namespace {

// Where a listing is to resume, and the text in which the plug-in says where it was cut.
class CContinuationPoint
{
public:
    explicit CContinuationPoint(const std::string& name) : passed(Widen(name, CP_UTF8)), slot(passed.data()) {}
    CContinuationPoint(const CContinuationPoint&) = delete;
    CContinuationPoint& operator=(const CContinuationPoint&) = delete;
    ~CContinuationPoint()
    {
        if (slot != passed.data())
            CoTaskMemFree(slot);
    }

    LPWSTR* Slot() { return &slot; }
    // The plug-in widens names with the ANSI code page but reads the point as UTF-8.
    std::string Name() const { return NarrowText(slot, CP_THREAD_ACP); }

private:
    WideString passed; // ours, the plug-in does not free it
    LPWSTR slot;
};

} // namespace

std::string BrowseFailure(HRESULT result)
{
    if (!FAILED(result))
        return {};
    return ResultText(result) + (result == E_INVALIDARG ? ", no structure, array or function block there" : "");
}

bool HasUnlistedElements(CSymb& table, const std::string& path)
{
    ListingRequest request;
    request.path = path;
    request.pageSize = 1;
    std::vector<ListingEntry> page;
    if (!CListing(table, request).NextPage(page) || page.empty() || !page.front().isElement)
        return false;
    const std::int64_t first = ParseNumber(page.front().symbol.c_str() + path.size() + 1);
    const std::int64_t behind = first + kListedElements;
    return behind <= std::numeric_limits<std::int32_t>::max() &&
           IsAnswered(table, path + "[" + std::to_string(behind) + "]");
}

std::string LimitText()
{
    return "there are more than the " + std::to_string(kListedElements) + " elements that a listing holds at most";
}

CListing::CListing(CSymb& source, ListingRequest wanted)
    : table(source), request(std::move(wanted)), resumeAt(request.startAt)
{}

bool CListing::NextPage(std::vector<ListingEntry>& page)
{
    page.clear();
    if (!more)
        return false;
    CElementArray elements(request.pageSize);
    CContinuationPoint point(resumeAt);
    DWORD moreElements = 0;
    const BOOL branchesOnly = request.wantBranches && !request.wantLeaves;
    const HRESULT result = table.BrowseSymbolsWithProperties(
        request.filter.c_str(), request.pattern.c_str(), request.varType, request.path.c_str(), 0, 0, branchesOnly,
        request.wantLeaves, request.wantBranches, 0, nullptr, nullptr, point.Slot(), request.pageSize, 0, 0, 0, 0,
        &moreElements, &elements.count, &elements.items, &elements.capacity, nullptr);
    if (FAILED(result))
        return Fail(BrowseFailure(result));
    if (elements.count == 0 && !resumeAt.empty())
        return Fail("the listing cannot be resumed at " + resumeAt);
    page.reserve(elements.count);
    for (DWORD index = 0; index < elements.count; ++index)
        page.push_back(EntryOf(elements.items[index]));
    listed += page.size();
    more = moreElements != 0;
    if (!more && MayBeCut() && HasUnlistedElements(table, request.path))
        Fail(LimitText());
    if (more) {
        resumeAt = point.Name();
        if (!resumed.insert(resumeAt).second)
            Fail("the listing comes back to " + resumeAt + ", which it holds more than once");
    }
    return true;
}

bool CListing::MayBeCut() const
{
    const bool isFiltered = request.pattern != "*" || !request.filter.empty() || request.varType != 0;
    return !request.path.empty() && request.startAt.empty() && (isFiltered || listed >= kListedElements);
}

ListingEntry CListing::EntryOf(const BrowseElement& element) const
{
    ListingEntry entry{NarrowText(element.name, CP_THREAD_ACP), {}, element.kind == BrowseElement::kBranch, false};
    if (request.path.empty()) {
        entry.symbol = entry.name;
        return entry;
    }
    // Without a parent's identifier the plug-in's is what follows the path: ".NAME" or "[INDEX]". That holds for
    // paths of any length, of which an identifier would keep the first 1023 bytes.
    const std::string behindPath = NarrowText(element.itemId, CP_THREAD_ACP);
    entry.symbol.reserve(request.path.size() + behindPath.size());
    entry.symbol = request.path;
    entry.symbol += behindPath;
    entry.isElement = behindPath.starts_with('[');
    return entry;
}

bool CListing::Fail(const std::string& reason)
{
    failure = reason;
    more = false;
    return false;
}
