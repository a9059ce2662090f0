#include "symbhost/exports/CExplainer.h"

#include "symbhost/CNearestNames.h"
#include "symbhost/exports/ListedReason.h"
#include "symbhost/exports/UpperName.h"
#include "symbkds/model/ArrayDeclaration.h"
#include "symbkds/model/ElementaryTypes.h"
#include "symbkds/model/TextNumber.h"

#include <algorithm>
#include <limits>

namespace {

constexpr std::size_t kNamesShown = 8;
constexpr std::size_t kExamples = 3;
// Comparing a mistyped name with all others takes a while; a list of nothing else would take hours.
constexpr std::size_t kMostSuggestions = 1000;

bool IsElementary(const std::string& typeName)
{
    return FindElementaryType(typeName, NameCase::Ignored) != nullptr;
}

std::string Like(const CNearestNames& nearest)
{
    const std::vector<std::string> names = nearest.Names();
    return names.empty() ? "" : "; names like it: " + JoinNames(names, names.size());
}

CListing ListBelow(const CProject& project, const std::string& path, DWORD pageSize)
{
    ListingRequest request;
    request.path = path;
    request.pageSize = pageSize;
    return {project.Table(), request};
}

Explanation NoBit(const LookupAnswer& value, const CSymbolPath& path)
{
    const std::string none = " and has no bit " + path.Bit().value_or("");
    if (value.IsBit())
        return {Reason::NoBit, value.name + " is a bit itself" + none};
    const bool isWord = value.descriptor.size == 2;
    return {Reason::NoBit,
            value.name + " is " + value.typeName + " of " + std::to_string(value.descriptor.size) + " bytes" + none +
                (isWord ? "; values of 2 bytes have the bits 0 to 15" : "; values of 2 bytes have bits")};
}

} // namespace

Explanation CExplainer::Explain(const LookupAnswer& answer)
{
    if (answer.IsResolved())
        return ExplainServed(answer);
    const CSymbolPath path(answer.name);
    if (!path.IsPath() || IsNoPath(answer))
        return {Reason::NotAPath, "this is no name: a path begins with a variable and has at most 16 steps, and "
                                  "brackets hold numbers"};
    if (const std::string listed = FindUnreachable(path, answer.name); !listed.empty())
        return {Reason::UnreachableName, listed + " of this name is listed, but " + kReadOtherwise};
    const std::optional<CProject::Root> root = project.FindRoot(path.Prefix(0));
    if (!root)
        return NotInExport(path.Prefix(0));
    if (!root->isListed)
        return UnknownType(root->item.name, root->item.typeName);
    return path.StepCount() == 1 ? ExplainPlain(answer, *root, path)
                                 : ExplainSteps(path, {path.Prefix(0), root->item.typeName});
}

// What is listed under `name` but out of reach, as a half sentence; empty when nothing is. `path` is the name, taken
// apart.
std::string CExplainer::FindUnreachable(const CSymbolPath& path, const std::string& name)
{
    const std::optional<CProject::Root> root =
        IsUnreachable(name, NameOf::Variable) ? project.FindRoot(name) : std::nullopt;
    if (root && root->isListed)
        return "a variable";
    for (std::size_t step = 0; step < path.StepCount(); ++step)
        if (HasUnreachableMember(path, step, name))
            return "a member of " + path.Prefix(step);
    return {};
}

// Whether `name` is that of a member, below the path up to `step`, that no lookup can reach.
bool CExplainer::HasUnreachableMember(const CSymbolPath& path, std::size_t step, const std::string& name)
{
    const std::string parent = path.Prefix(step);
    if (!UpperName(name).starts_with(UpperName(parent) + "."))
        return false;
    const std::string member = name.substr(parent.size() + 1);
    return IsUnreachable(member, NameOf::Member) && MembersOf(path, step).upperNames.contains(UpperName(member));
}

const CExplainer::Members& CExplainer::MembersOf(const CSymbolPath& path, std::size_t step)
{
    const std::string parent = path.Prefix(step);
    Members read{.upperParent = UpperName(parent)};
    membersOnWay.resize(std::max(membersOnWay.size(), step + 1));
    if (membersOnWay[step].upperParent == read.upperParent)
        return membersOnWay[step];
    CListing listing = ListBelow(project, parent, 1000);
    std::vector<ListingEntry> page;
    while (!read.isArray && listing.NextPage(page))
        for (const ListingEntry& entry : page)
            if (entry.isElement)
                read.isArray = true;
            else
                read.upperNames.insert(UpperName(entry.symbol.substr(parent.size() + 1)));
    read.isWhole = listing.Failure().empty();
    return membersOnWay[step] = std::move(read);
}

Explanation CExplainer::ExplainServed(const LookupAnswer& answer)
{
    const Row row = RowOf(answer);
    std::string text = std::string(row.typeName) + " at block " + std::to_string(row.block) + ", offset " +
                       std::to_string(row.offset) + ", " + std::to_string(row.size) + " bytes";
    if (row.isBit)
        text += ", bit " + std::to_string(row.bit);
    text += ", access " + std::string(AccessText(row.accessRights));
    const CSymbolPath path(answer.name);
    if (const std::string listed = FindUnreachable(path, answer.name); !listed.empty())
        text += "; " + listed + " of this name is listed as well, and out of reach";
    else if (IsHidden(path))
        text += "; hidden: no listing shows it";
    return {Reason::None, text};
}

bool CExplainer::IsHidden(const CSymbolPath& path)
{
    const std::size_t last = path.StepCount() - 1;
    if (last == 0 || path.IsIndex(last))
        return false;
    const Members& members = MembersOf(path, last - 1);
    // A name below an array means an element.
    return !members.isArray && members.isWhole && !members.upperNames.contains(UpperName(path.Step(last)));
}

Explanation CExplainer::NotInExport(const std::string& root)
{
    Explanation explanation{Reason::NotInExport, "no variable is called " + root};
    if (++suggestions > kMostSuggestions)
        return explanation;
    if (variableNames.empty())
        for (std::size_t position = 0; position < project.File().CountVariables(); ++position)
            variableNames.push_back(project.File().ReadVariableName(position));
    CNearestNames nearest(root);
    for (const std::string& name : variableNames)
        nearest.Show(name);
    explanation.text += Like(nearest);
    return explanation;
}

Explanation CExplainer::UnknownType(const std::string& symbol, const std::string& typeName) const
{
    const bool isDeclared = project.File().FindType(typeName) != nullptr;
    const bool isArray = UpperName(typeName).starts_with("ARRAY");
    return {Reason::UnknownType, symbol + " is of type \"" + typeName + "\", which " +
                                     (isArray      ? "is no array that can be used"
                                      : isDeclared ? "is declared, but was dropped because nothing in it can be used"
                                                   : "is declared nowhere")};
}

Explanation CExplainer::ExplainPlain(const LookupAnswer& failed, const CProject::Root& root,
                                     const CSymbolPath& path) const
{
    const std::string& name = root.item.name;
    const std::string& typeName = root.item.typeName;
    const LookupAnswer whole = project.LookUp(path.Prefix(0));
    if (whole.IsResolved())
        return NoBit(whole, path);
    switch (const Reason reason = ReasonOfRoot(failed, root.item, root.isBranch)) {
    case Reason::NoAddress:
        return {reason, name + " has no topological address"};
    case Reason::TypeNotServed:
        return {reason, name + " is " + typeName +
                            "; of the elementary types a plain name serves BOOL, EBOOL, INT, "
                            "UINT and WORD"};
    default: {
        CListing listing = ListBelow(project, path.Prefix(0), static_cast<DWORD>(kExamples));
        std::vector<ListingEntry> page;
        std::vector<std::string> parts;
        listing.NextPage(page);
        parts.reserve(page.size());
        for (const ListingEntry& entry : page)
            parts.push_back(entry.symbol);
        return {reason, name + " is of type " + typeName + "; a host asks for what is below it" +
                            (parts.empty() ? "" : ", such as " + JoinNames(parts, kExamples))};
    }
    }
}

Explanation CExplainer::ExplainSteps(const CSymbolPath& path, Parent parent) const
{
    for (std::size_t step = 1; step < path.StepCount(); ++step) {
        const std::string symbol = path.Prefix(step);
        const LookupAnswer answer = project.LookUp(symbol);
        std::vector<ListingEntry> page;
        if (!answer.IsResolved() && !ListBelow(project, symbol, 1).NextPage(page))
            return ExplainStep(path, step, parent);
        parent = {symbol, answer.IsResolved() ? answer.typeName : project.MemberType(parent.typeName, path.Step(step))};
        const bool isLast = step + 1 == path.StepCount();
        if (isLast && answer.IsResolved() && path.Bit())
            return NoBit(answer, path);
    }
    return {Reason::NestedBlock, parent.path + " is listed, but lies inside a function block that is no variable of "
                                               "its own"};
}

// `step` is the first that neither a lookup nor a listing of the path up to it answers.
Explanation CExplainer::ExplainStep(const CSymbolPath& path, std::size_t step, const Parent& parent) const
{
    std::vector<ListingEntry> page;
    CListing listing = ListBelow(project, parent.path, 1000);
    if (!listing.NextPage(page))
        return IsElementary(parent.typeName)
                   ? Explanation{Reason::NothingBelow, parent.path + " is " + parent.typeName + ": nothing is below it"}
                   : UnknownType(parent.path, parent.typeName);
    if (!page.empty() && page.front().isElement)
        return ExplainElement(path, step, parent, page.front());
    const std::string wanted = UpperName(path.Prefix(step));
    std::vector<std::string> members;
    do {
        for (const ListingEntry& entry : page) {
            if (UpperName(entry.symbol) == wanted)
                return entry.isBranch
                           ? UnknownType(entry.symbol, project.MemberType(parent.typeName, entry.name))
                           : Explanation{Reason::NestedBlock, entry.symbol + " is listed, but lies inside a function "
                                                                             "block that is no variable of its own"};
            members.push_back(entry.name);
        }
    } while (listing.NextPage(page));
    return ExplainMember(path, step, parent, members);
}

Explanation CExplainer::ExplainElement(const CSymbolPath& path, std::size_t step, const Parent& array,
                                       const ListingEntry& first) const
{
    std::vector<ListingEntry> page;
    if (!path.IsIndex(step))
        return {Reason::NoMember, array.path + " is an array; its elements are asked for like " + first.symbol};
    if (!IsAnswered(project.Table(), first.symbol) && !ListBelow(project, first.symbol, 1).NextPage(page)) {
        const ExportType* const declared = project.File().FindType(array.typeName);
        const ArrayDeclaration declaration((declared ? declared->declaration : array.typeName).c_str());
        return UnknownType(path.Prefix(step), std::string(declaration.elementTypeName.View()));
    }
    const std::int64_t firstIndex = ParseNumber(first.symbol.c_str() + array.path.size() + 1);
    return {Reason::IndexOutside, array.path + " has the elements " + std::to_string(firstIndex) + " to " +
                                      std::to_string(LastIndex(array.path, firstIndex)) + "; there is no " +
                                      path.Step(step)};
}

std::int64_t CExplainer::LastIndex(const std::string& array, std::int64_t first) const
{
    const auto isThere = [&](std::int64_t index) {
        return IsAnswered(project.Table(), array + "[" + std::to_string(index) + "]");
    };
    std::int64_t inside = first;
    std::int64_t outside = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
    while (outside - inside > 1) {
        const std::int64_t middle = inside + (outside - inside) / 2;
        (isThere(middle) ? inside : outside) = middle;
    }
    return inside;
}

Explanation CExplainer::ExplainMember(const CSymbolPath& path, std::size_t step, const Parent& parent,
                                      const std::vector<std::string>& members) const
{
    const ExportType* const type = project.File().FindType(parent.typeName);
    const bool isArray = type ? type->kind == ExportType::Kind::Array : UpperName(parent.typeName).starts_with("ARRAY");
    if (isArray && members.empty())
        return {Reason::UnusableArray,
                parent.path + " is " + (type ? type->declaration : parent.typeName) + ", of which no element is there"};
    if (type && type->kind == ExportType::Kind::FunctionBlock) {
        const ExportType* const inner = project.File().FindType(project.MemberType(parent.typeName, path.Step(step)));
        if (inner && inner->kind == ExportType::Kind::FunctionBlock)
            return {Reason::RemovedBlock, path.Prefix(step) + " is a function block of type " + inner->name +
                                              " inside a function block, and such are taken out"};
    }
    CNearestNames nearest(path.Step(step));
    for (const std::string& member : members)
        nearest.Show(member);
    const std::string has = members.empty() ? "no members" : "the members " + JoinNames(members, kNamesShown);
    return {Reason::NoMember,
            path.IsIndex(step) ? parent.path + " is no array; it has " + has
                               : parent.path + " has no member " + path.Step(step) + Like(nearest) + "; it has " + has};
}
