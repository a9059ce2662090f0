#include "symbhost/commands/CTypeCheck.h"

#include "symbhost/commands/ItemFindings.h"
#include "symbhost/exports/ListedReason.h"
#include "symbhost/exports/RegisteredType.h"
#include "symbhost/exports/TypeRings.h"
#include "symbhost/exports/UpperName.h"
#include "symbkds/model/ExportWords.h"
#include "symbkds/model/ImportRules.h"

namespace {

const char* KindText(const ExportType& type)
{
    constexpr const char* kTexts[] = {"structure", "array", "function block"};
    return kTexts[static_cast<std::size_t>(type.kind)];
}

// Calls `visit` with each member that the import reads and whether it takes it out again.
template <class Visit>
void ForEachMember(const CExportFile& file, const ExportType& type, Visit&& visit)
{
    const auto isBlock = [&file](const CString& typeName) {
        const ExportType* const declared = file.FindType(static_cast<LPCSTR>(typeName));
        return declared && declared->kind == ExportType::Kind::FunctionBlock;
    };
    const bool isHolderBlock = type.kind == ExportType::Kind::FunctionBlock;
    int position = 0;
    for (const ExportSection& section : type.sections) {
        if (isHolderBlock && !IsFunctionBlockSection(section.tag))
            continue;
        for (const ExportItem& member : section.members) {
            CString typeName(member.typeName.c_str());
            visit(member, isHolderBlock && IsTakenOut(position++, typeName, isBlock));
        }
    }
}

// The bytes of a member for a host.
std::uint32_t MemberSize(const ExportType& holder, const ExportItem& member, const TypeMeaning& meaning)
{
    const auto told = static_cast<std::uint32_t>(member.size.value_or(0));
    const MemberOf kind =
        holder.kind == ExportType::Kind::FunctionBlock ? MemberOf::FunctionBlock : MemberOf::Structure;
    return meaning.elementary && !meaning.isArray ? ElementaryMemberSize(kind, told, meaning.elementarySize) : told;
}

bool IsHeld(const CExportFile& file, const ExportType& type)
{
    return IsRegistered(type) && file.FindType(type.name) == &type;
}

} // namespace

void CTypeCheck::NoteUse(const TypeMeaning& meaning, const ExportNumber& size, const std::string& user)
{
    if (!meaning.holder || meaning.elements == 0)
        return;
    const auto bytes = static_cast<std::uint32_t>(size.value_or(0)) / meaning.elements;
    if (bytes == 0)
        return;
    const auto [use, isNew] = smallestUses.try_emplace(meaning.holder, Use{bytes, user});
    if (!isNew && bytes < use->second.bytes)
        use->second = {bytes, user};
}

void CTypeCheck::NoteMembers()
{
    for (const ExportType& type : file.Types())
        if (IsHeld(file, type))
            ForEachMember(file, type, [&](const ExportItem& member, bool isRemoved) {
                if (!isRemoved)
                    NoteUse(MeaningOf(file, member.typeName), member.size, type.name + "." + member.name);
            });
}

std::vector<std::string> CTypeCheck::FindRingMembers() const
{
    const std::vector<ExportType>& types = file.Types();
    std::vector<std::vector<std::uint32_t>> edges(types.size());
    std::vector<std::vector<const std::string*>> names(types.size()); // of the members that are the edges
    for (std::size_t at = 0; at < types.size(); ++at) {
        const auto lead = [&](const std::string& typeName, const std::string& member) {
            if (const ExportType* to = MeaningOf(file, typeName).firstDeclared) {
                edges[at].push_back(static_cast<std::uint32_t>(to - types.data()));
                names[at].push_back(&member);
            }
        };
        if (!IsHeld(file, types[at]))
            continue;
        if (types[at].kind == ExportType::Kind::Array)
            lead(static_cast<LPCSTR>(ArrayDeclaration(types[at].declaration.c_str()).elementTypeName), types[at].name);
        ForEachMember(file, types[at], [&](const ExportItem& member, bool isRemoved) {
            if (!isRemoved)
                lead(member.typeName, member.name);
        });
    }
    const std::vector<std::uint32_t> rings = FindRings(edges);
    std::vector<std::string> members(types.size());
    for (std::size_t at = 0; at < types.size(); ++at)
        for (std::size_t edge = 0; edge < edges[at].size() && rings[at] != kNoRing && members[at].empty(); ++edge)
            if (rings[edges[at][edge]] == rings[at])
                members[at] = types[at].kind == ExportType::Kind::Array ? "its elements are"
                                                                        : "its member " + *names[at][edge] + " is";
    return members;
}

void CTypeCheck::Run()
{
    NoteMembers();
    const std::vector<std::string> ringMembers = FindRingMembers();
    for (std::size_t at = 0; at < file.Types().size(); ++at) {
        const ExportType& type = file.Types()[at];
        CheckDeclaration(type);
        if (!IsHeld(file, type))
            continue;
        if (type.kind == ExportType::Kind::Array)
            CheckArray(type);
        if (!ringMembers[at].empty())
            findings.Add(kTypeRing, type.name, "holds itself: " + ringMembers[at] + " of a type that leads back to it");
        AddTextFindings(type, type.name, findings);
        CheckSections(type);
    }
}

void CTypeCheck::CheckDeclaration(const ExportType& type)
{
    if (!IsRegistered(type)) {
        const ArrayDeclaration declaration(type.declaration.c_str());
        if (!declaration.MakesValue())
            findings.Add(kUnusableArray, type.name,
                         "the array " + ArrayProblem(declaration) + "; the type is left out");
        else
            findings.Add(kDroppedType, type.name,
                         std::string(type.kind == ExportType::Kind::Array ? "an array without a readable range"
                                                                          : "a structure without members") +
                             "; the type is left out");
        return;
    }
    const ExportType*& known = met[UpperName(type.name)];
    if (known)
        findings.Add(kDuplicateType, type.name,
                     std::string("this ") + KindText(type) + " replaces the " + KindText(*known) + " " + known->name +
                         " that is declared before it");
    known = &type;
}

void CTypeCheck::CheckArray(const ExportType& type)
{
    const ArrayDeclaration declaration(type.declaration.c_str());
    if (const std::string problem = ArrayProblem(declaration); !problem.empty())
        findings.Add(kUnusableArray, type.name, "the array " + problem + "; nothing below it resolves");
    AddTypeFindings(MeaningOf(file, static_cast<LPCSTR>(declaration.elementTypeName)), type.name, findings);
}

void CTypeCheck::CheckSections(const ExportType& type)
{
    for (const ExportSection& section : type.sections)
        if (type.kind == ExportType::Kind::FunctionBlock && !IsFunctionBlockSection(section.tag) &&
            section.tag != "comment")
            findings.Add(kIgnoredSection, type.name, "the child element " + section.tag + " is no section");
    ForEachMember(file, type, [&](const ExportItem& member, bool isRemoved) {
        if (isRemoved)
            findings.Add(kRemovedBlock, type.name + "." + member.name,
                         "a function block inside a function block, " + member.typeName + "; a host does not get it");
        else
            CheckMember(type, member);
    });
}

void CTypeCheck::CheckMember(const ExportType& type, const ExportItem& member)
{
    const std::string symbol = type.name + "." + member.name;
    const TypeMeaning meaning = MeaningOf(file, member.typeName);
    AddTypeFindings(meaning, symbol, findings);
    if (IsUnreachable(member.name, NameOf::Member))
        findings.Add(kUnreachableName, symbol, std::string(kReadOtherwise) + "; it never answers with this member");
    CheckEnd(type, member, meaning, symbol);
    AddSizeFinding(member, meaning, MemberSize(type, member, meaning), symbol, findings);
    AddTextFindings(member, symbol, findings);
    if (member.hidden.value_or(0) != 0)
        findings.Add(kHiddenMember, symbol, "hidden from listings, but resolved");
}

void CTypeCheck::CheckEnd(const ExportType& type, const ExportItem& member, const TypeMeaning& meaning,
                          const std::string& symbol)
{
    const auto use = smallestUses.find(&type);
    if (use == smallestUses.end())
        return;
    const std::uint64_t end =
        static_cast<std::uint32_t>(member.offset.value_or(0)) + std::uint64_t{MemberSize(type, member, meaning)};
    if (end > use->second.bytes)
        findings.Add(kOutsideParent, symbol,
                     "ends at byte " + std::to_string(end) + ", but " + use->second.user + " has " +
                         std::to_string(use->second.bytes) + " bytes for it");
}
