#include "symbhost/exports/CProject.h"

#include "symbhost/exports/UpperName.h"
#include "symbkds/model/ElementaryTypes.h"
#include "symbkds/model/TextNumber.h"

#include <limits>

namespace {

// The root's entry of exactly this name; nothing when it is not listed.
std::optional<ListingEntry> ListedRoot(CSymb& table, const std::string& name)
{
    ListingRequest request;
    request.startAt = name;
    request.pageSize = 1;
    std::vector<ListingEntry> page;
    if (!name.empty() && CListing(table, request).NextPage(page) && page.front().name == name)
        return page.front();
    return std::nullopt;
}

} // namespace

CProject::CProject(CLoadedExport& loadedExport) : loaded(loadedExport), file(loadedExport.Path()) {}

std::string CProject::MemberType(const std::string& parentType, const std::string& member) const
{
    std::string found;
    if (const ExportType* type = file.FindType(parentType)) {
        const std::string upperMember = UpperName(member);
        for (const ExportSection& section : type->sections)
            for (const ExportItem& item : section.members)
                if (UpperName(item.name) == upperMember)
                    found = item.typeName; // of several the last
    }
    return found;
}

std::optional<CProject::Root> CProject::FindRoot(const std::string& name) const
{
    std::optional<Root> found;
    for (const std::size_t position : file.FindVariables(name)) {
        Root root{file.ReadVariable(position), false, false};
        if (const std::optional<ListingEntry> entry = ListedRoot(Table(), root.item.name)) {
            root.isListed = true;
            root.isBranch = entry->isBranch;
            // Of two variables with one name the later may have been left out for its type.
            const bool isElementary = FindElementaryType(root.item.typeName, NameCase::Ignored) != nullptr;
            if (isElementary != root.isBranch)
                return root;
        }
        if (!found)
            found = std::move(root);
    }
    return found;
}

bool CProject::IsListingCut(const std::string& path) const
{
    ListingRequest request;
    request.path = path;
    request.pageSize = 1;
    std::vector<ListingEntry> page;
    if (!CListing(Table(), request).NextPage(page) || page.empty() || !page.front().isElement)
        return false;
    const std::int64_t first = ParseNumber(page.front().symbol.c_str() + path.size() + 1);
    const std::int64_t behind = first + kListedElements;
    return behind <= std::numeric_limits<std::int32_t>::max() &&
           LookUp(path + "[" + std::to_string(behind) + "]").IsResolved();
}
