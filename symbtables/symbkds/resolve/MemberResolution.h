// What the definitions share when they resolve a level of a path.
#pragma once

#include "symb/AddressDescriptor.h"
#include "symbkds/model/CMemberList.h"
#include "symbkds/model/CSymbXMLDDTDef.h"
#include "symbkds/model/CSymbXMLDDTMember.h"
#include "symbkds/resolve/CSymbKorvaAnalyser.h"

// The texts that a resolution fills in.
struct ResolvedTexts
{
    CString& typeName;
    CString& comment;
    CString& address;
};

// The member that a level of the path names; null when there is none.
CSymbXMLDDTMember* FindMember(const CMemberList& members, const CSymbKorvaAnalyser& path, int level);

// Moves the descriptor to a value `offsetBytes` into the one it describes. An
// unlocated one keeps its offset; its relative offset and size say where the value is.
void MoveInto(AddressDescriptor& descriptor, bool located, std::uint32_t offsetBytes, std::uint32_t sizeBytes);

// The text shown for a value that has no address of its own; ends in a blank.
CString UnlocatedAddress(const CString& typeName, const AddressDescriptor& descriptor);

// Describes a member at which a path ends.
void DescribeMember(const CSymbXMLDDTMember& member, std::uint32_t typeCode, AddressDescriptor& descriptor,
                    ResolvedTexts texts);

// Resolves the levels below the member at `level`; false when its type is not known.
bool ResolveBelowMember(const CSymbXMLDDTMember& member, MAPOFDDTDEF* types, const CSymbKorvaAnalyser& path, int level,
                        bool located, AddressDescriptor& descriptor, ResolvedTexts texts);

// FindDefinitionAtPath of `self`, a definition with members.
bool FindDefinitionAmongMembers(CSymbXMLDDTDef& self, const CMemberList& members, const CSymbKorvaAnalyser& path,
                                int level, MAPOFDDTDEF* types, CSymbXMLDDTDef*& found, std::uint16_t& block,
                                std::uint32_t& offset, std::uint32_t& size);
