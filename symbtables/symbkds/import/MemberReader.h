#pragma once

#include "symbkds/import/ElementReader.h"
#include "symbkds/model/CSymbXMLDDTMember.h"

#include <memory>

// Both take the member's name, type, comment, placement, access rights and hidden flag from its element. The type is
// classified, so types that it names must be registered by then.

// A member of a structure. Nothing but the element decides: the hidden flag counts however it came. The type is
// classified last: a call that throws before leaves no anonymous array behind.
std::unique_ptr<CSymbXMLDDTMember> ReadStructureMember(WalkElement& element, const ExportKeys& keys,
                                                       MAPOFDDTDEF& types);

// A parameter of a function block, and what its section needs to know of the calls.
struct ParameterRead
{
    std::unique_ptr<CSymbXMLDDTMember> member;
    bool allSelected = true;     // the selections of block, offset, size and access right all delivered a list
    HRESULT hiddenResult = S_OK; // of the last call made for the hidden flag
};

// The type is classified before the other values are read. A list that was delivered counts whatever result came with
// it, the hidden flag only after S_OK.
ParameterRead ReadParameter(WalkElement& element, const ExportKeys& keys, MAPOFDDTDEF& types);
