#include "symbhost/exports/ListedReason.h"

#include "symbkds/model/ElementaryTypes.h"
#include "symbkds/model/TypeCodes.h"
#include "symbkds/resolve/CSymbKorvaAnalyser.h"

#include <algorithm>

bool IsNoPath(const LookupAnswer& failed)
{
    // The lookup sends this for any path that it cannot analyse.
    return failed.message.find("Extract bit with bat bit index") != std::string::npos ||
           failed.name.find('\0') != std::string::npos;
}

bool IsUnreachable(std::string_view name, NameOf what)
{
    return std::ranges::any_of(name, CSymbKorvaAnalyser::EndsName) ||
           (what == NameOf::Variable && name.starts_with(' ')) || CSymbKorvaAnalyser::IsNumberFrom(name, 0);
}

Reason ReasonOfRoot(const LookupAnswer& failed, const ExportItem& variable, bool isBranch)
{
    if (IsNoPath(failed))
        return Reason::NotAPath;
    if (IsUnreachable(variable.name, NameOf::Variable))
        return Reason::UnreachableName;
    const ElementaryType* const type = FindElementaryType(variable.typeName, NameCase::Ignored);
    if (isBranch || !type)
        return Reason::NotAValue;
    return IsBitOrWordCode(type->typeCode) ? Reason::NoAddress : Reason::TypeNotServed;
}

Reason ReasonOfMember(const LookupAnswer& failed, std::string_view name, bool hasUnknownType)
{
    if (IsNoPath(failed))
        return Reason::NotAPath;
    if (IsUnreachable(name, NameOf::Member))
        return Reason::UnreachableName;
    return hasUnknownType ? Reason::UnknownType : Reason::NestedBlock;
}
