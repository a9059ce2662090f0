#pragma once

#include "platform/com/Variant.h"
#include "platform/mfc/CString.h"

#include <cstdint>

class MAPOFDDTDEF;

// One member of a structure, or one parameter or variable of a function block.
class CSymbXMLDDTMember
{
public:
    // The parameter's address holds a reference to the value.
    static constexpr std::uint16_t kPassedByReference = 2;
    // The levels below the parameter stay located.
    static constexpr std::uint16_t kPassedByValue = 1;

    CSymbXMLDDTMember();
    CSymbXMLDDTMember(const CSymbXMLDDTMember&) = delete;
    CSymbXMLDDTMember& operator=(const CSymbXMLDDTMember&) = delete;
    virtual ~CSymbXMLDDTMember();

    // Sets type name, type code and variant type. Elementary names are matched in any case.
    void SetTypeName(const CString& newTypeName, MAPOFDDTDEF* types);

    CString name;                      // attribute name, UTF-8, case of the export
    CString comment;                   // text of the child comment, UTF-8
    CString typeName;                  // attribute typeName; upper case once the member was resolved or listed
    std::uint32_t typeCode;            // unclassified until SetTypeName
    VARTYPE varType = VT_EMPTY;        // under which the host reads the value
    std::uint16_t block = 0;           // AreaBlock, added to the block of the enclosing value
    std::uint32_t offset = 0;          // AreaOffset, bytes from the start of the enclosing value
    std::uint32_t size = 0;            // Size, bytes
    std::uint16_t accessRights = 0;    // 1 read, 2 write, 3 both, 0 none; from RequestAccessRight
    std::uint16_t indirectionKind = 0; // kPassedByReference, kPassedByValue; the imports store 0
    std::uint32_t hidden = 0;          // 1: IsVariableHidden, never listed
};
