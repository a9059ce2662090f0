// What an import takes of an export and what it leaves out.
#pragma once

#include "symbkds/model/ElementaryTypes.h"

#include <string_view>

// Whether a structure becomes a type: without members only one, which hosts know by its name.
constexpr bool IsStructureKept(std::string_view name, bool hasMembers)
{
    return hasMembers || name == "SFCCHART_STATE";
}

// Function blocks are taken out of function blocks from this parameter on, counted over all sections from 0.
constexpr int kFirstRemovableParameter = 1;

// Whether the parameter at `position` is taken out after the load. Makes `typeName` upper case; `isFunctionBlock` tells
// of a type's name that is not elementary, and is asked only where that decides.
template <class IsFunctionBlock>
bool IsTakenOut(int position, CString& typeName, IsFunctionBlock&& isFunctionBlock)
{
    return position >= kFirstRemovableParameter && !IsElementary(typeName) && isFunctionBlock(typeName);
}

enum class MemberOf
{
    Structure,
    FunctionBlock
};

// The bytes of an elementary member: those of its type in a structure, what the export tells in a function block.
constexpr std::uint32_t ElementaryMemberSize(MemberOf holder, std::uint32_t told, std::uint32_t ofType)
{
    return holder == MemberOf::Structure ? ofType : told;
}
