#pragma once

#include "symbkds/import/ElementReader.h"
#include "symbkds/model/CSymbXMLDDTMember.h"

#include <memory>

// A member of a structure or a parameter of a function block, as its element describes it.
struct MemberRead
{
    std::unique_ptr<CSymbXMLDDTMember> member;
    bool allSelected = true;     // the selections of block, offset, size and access right all delivered a list
    HRESULT hiddenResult = S_OK; // of the last call made for the hidden flag
};

// Classifies the member's type too, so types that it names must be registered by then.
MemberRead ReadMember(WalkElement& element, const ImportKeys& keys, MAPOFDDTDEF& types);
