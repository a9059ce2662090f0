#include "symbhost/exports/CProject.h"

#include "symbhost/exports/TypeMeaning.h"
#include "symbhost/exports/UpperName.h"

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

std::optional<std::size_t> CProject::FindListedPosition(const std::string& name) const
{
    std::optional<std::size_t> found;
    const std::vector<std::size_t> positions = file.FindVariables(name);
    for (const std::size_t position : positions) {
        if (file.ReadVariableName(position) != name)
            continue;
        if (positions.size() == 1 || MeaningOf(file, file.ReadVariableType(position)).isFound)
            return position;
        if (!found)
            found = position;
    }
    return found;
}

std::optional<CProject::Root> CProject::FindListedRoot(const std::string& name, bool isBranch) const
{
    const std::optional<std::size_t> position = FindListedPosition(name);
    return position ? std::optional(Root{file.ReadVariable(*position), true, isBranch}) : std::nullopt;
}

std::string CProject::FindListedType(const std::string& name) const
{
    const std::optional<std::size_t> position = FindListedPosition(name);
    return position ? file.ReadVariableType(*position) : std::string();
}

std::optional<CProject::Root> CProject::FindRoot(const std::string& name) const
{
    const std::vector<std::size_t> positions = file.FindVariables(name);
    for (const std::size_t position : positions)
        if (const std::optional<ListingEntry> entry = ListedRoot(Table(), file.ReadVariableName(position)))
            return FindListedRoot(entry->name, entry->isBranch);
    if (positions.empty() || name.empty())
        return std::nullopt;
    return Root{file.ReadVariable(positions.front()), false, false};
}
