#include "symbhost/commands/CVariableCheck.h"

#include "symbhost/commands/ItemFindings.h"
#include "symbhost/exports/CWalk.h"
#include "symbhost/exports/ListedReason.h"
#include "symbhost/exports/UpperName.h"

#include <algorithm>
#include <utility>

CVariableCheck::CVariableCheck(const CProject& checked, CFindings& target)
    : project(checked), file(checked.File()), findings(target)
{
    Collect();
}

void CVariableCheck::Collect()
{
    WalkOptions variables;
    variables.branches = true;
    variables.below = false;
    for (CWalk walk(project, variables); walk.Next();)
        listedByName[UpperName(std::string(walk.Current().name))] = {static_cast<const RowFacts&>(walk.Current())};
}

CVariableCheck::Listed* CVariableCheck::Find(const std::string& name)
{
    const auto found = listedByName.find(UpperName(name));
    return found == listedByName.end() ? nullptr : &found->second;
}

void CVariableCheck::NoteUses(CTypeCheck& types)
{
    for (std::size_t position = 0; position < file.CountVariables(); ++position) {
        const ExportItem item = file.ReadVariable(position);
        Listed* const listed = item.name.empty() ? nullptr : Find(item.name);
        const TypeMeaning meaning = MeaningOf(file, item.typeName);
        // Of several with one name a host gets the last that was not left out for its type.
        if (!listed || !meaning.isFound)
            continue;
        listed->holder = static_cast<std::uint32_t>(position);
        types.NoteUse(meaning, item.size, item.name);
    }
}

std::vector<Place> CVariableCheck::Places() const
{
    std::vector<Place> places;
    for (const auto& [name, listed] : listedByName)
        if (const std::optional<Place> place = PlaceOf(listed.facts))
            places.push_back(*place);
    return places;
}

void CVariableCheck::Run()
{
    CPlaceFinder places(Places());
    for (std::size_t position = 0; position < file.CountVariables(); ++position)
        Check(static_cast<std::uint32_t>(position), places);
    AddNotServed();
}

void CVariableCheck::Check(std::uint32_t position, CPlaceFinder& places)
{
    const ExportItem item = file.ReadVariable(position);
    if (item.name.empty()) {
        findings.Add(kNoName, "variables[" + std::to_string(position + 1) + "]",
                     "a variable without a name; a host does not get it");
        return;
    }
    const TypeMeaning meaning = MeaningOf(file, item.typeName);
    Listed* const listed = Find(item.name);
    const bool isOther = listed && listed->holder != kNone && listed->holder != position;
    if (!listed || (isOther && !meaning.isFound)) {
        AddDropped(item, meaning);
        return;
    }
    AddDuplicate(item, position, *listed);
    if (isOther)
        return; // of what a later one replaces a host sees nothing
    const std::optional<Place> place = PlaceOf(listed->facts);
    CheckHolder(item, meaning, *listed);
    if (place)
        CheckOverlap(item, *place, places);
    if (place && !listed->facts.isBit)
        AddSizeFinding(item, meaning, 0, item.name, findings);
    AddTextFindings(item, item.name, findings);
    if (place) {
        CheckAlias(item, *place, places);
        places.Add(*place, position);
    }
    CountNotServed(item, meaning, *listed);
}

void CVariableCheck::AddDropped(const ExportItem& item, const TypeMeaning& meaning)
{
    if (!meaning.arrayProblem.empty()) {
        AddTypeFindings(meaning, item.name, findings);
        return;
    }
    const bool isDeclared = file.FindType(item.typeName) != nullptr;
    findings.Add(kUnknownType, item.name,
                 item.typeName.empty() ? "the variable has no type; a host does not get it"
                 : isDeclared
                     ? "the type " + item.typeName + " is left out, so a host does not get the variable"
                     : "the type " + item.typeName + " is declared nowhere, so a host does not get the variable");
}

void CVariableCheck::AddDuplicate(const ExportItem& item, std::uint32_t position, Listed& listed)
{
    const std::uint32_t previous = std::exchange(listed.previous, position);
    if (previous != kNone)
        findings.Add(kDuplicateVariable, item.name,
                     "replaces " + file.ReadVariableName(previous) + ", variables[" + std::to_string(previous + 1) +
                         "], which a host does not get");
}

void CVariableCheck::CheckHolder(const ExportItem& item, const TypeMeaning& meaning, const Listed& listed)
{
    AddTypeFindings(meaning, item.name, findings);
    if (IsUnreachable(item.name, NameOf::Variable))
        findings.Add(kUnreachableName, item.name,
                     std::string(kReadOtherwise) + "; it never answers with this variable");
    if (listed.facts.IsServed() && !PlaceOf(listed.facts))
        findings.Add(kNoPlace, item.name, "served, but the export tells neither block nor offset nor size");
}

void CVariableCheck::CheckOverlap(const ExportItem& item, const Place& place, const CPlaceFinder& places)
{
    if (const std::optional<CPlaceFinder::Number> other = places.FindOverlap(place))
        findings.Add(kOverlap, item.name,
                     (place.IsBit() ? "is the same bit as " : "shares some of its bytes with ") +
                         file.ReadVariableName(*other));
}

void CVariableCheck::CheckAlias(const ExportItem& item, const Place& place, const CPlaceFinder& places)
{
    const std::optional<CPlaceFinder::Number> other = places.FindAlias(place);
    if (!other)
        return;
    const std::string name = file.ReadVariableName(*other);
    const Place otherPlace = *PlaceOf(Find(name)->facts);
    const char* const how = otherPlace.Bits() == place.Bits()  ? "lies at the same place as "
                            : otherPlace.Bits() > place.Bits() ? "lies inside "
                                                               : "lies around ";
    findings.Add(kAlias, item.name, how + name);
}

void CVariableCheck::CountNotServed(const ExportItem& item, const TypeMeaning& meaning, const Listed& listed)
{
    if (listed.facts.IsServed() || item.address.empty() || !meaning.elementary || meaning.isArray)
        return;
    const std::string_view type = meaning.elementary->name;
    auto count = std::ranges::find(notServed, type, [](const auto& entry) { return entry.first; });
    if (count == notServed.end())
        count = notServed.insert(count, {type, 0});
    ++count->second;
}

void CVariableCheck::AddNotServed()
{
    for (const auto& [type, count] : notServed)
        findings.Add(kNotServed, std::string(type),
                     std::to_string(count) + (count == 1 ? " located variable" : " located variables") +
                         " of this type that no plain name serves");
}
