#pragma once

#include "platform/com/Variant.h"
#include "platform/mfc/CString.h"

#include <cstdint>

class MAPOFDDTDEF;

// One variable of the export. Filled by the variable import and not changed afterwards.
class CSymbXMLItemDef
{
public:
    static constexpr std::uint8_t kNoExtractBit = 0xFF;

    CSymbXMLItemDef();
    CSymbXMLItemDef(const CSymbXMLItemDef&) = delete;
    CSymbXMLItemDef& operator=(const CSymbXMLItemDef&) = delete;
    virtual ~CSymbXMLItemDef();

    // Sets type name, type code and variant type. Elementary names are matched in upper case.
    void SetTypeName(const CString& newTypeName, MAPOFDDTDEF* types);
    void SetDeclaredTypeText(const CString& text) { declaredTypeText = text; }

    // The type as shown to people: the declaration of an anonymous array, else the type name.
    const CString& GetDisplayTypeName() const { return declaredTypeText.IsEmpty() ? typeName : declaredTypeText; }
    // Whether it has an address text, and whether that names a place in the controller's memory, such as %MW10.
    bool IsLocated() const { return !topologicalAddress.IsEmpty(); }
    bool HasMemoryAddress() const { return topologicalAddress.Find('%') >= 0; }
    // Whether the variable holds one value of an elementary type.
    bool IsElementaryScalar() const;
    // Whether it is a BOOL, EBOOL, INT, UINT or WORD: the types a plain name serves.
    bool IsBitOrWordType() const;

    CString name;                            // attribute name, UTF-8, case of the export
    CString comment;                         // text of the child comment, UTF-8
    CString customerString;                  // CustomerString, UTF-8
    CString topologicalAddress;              // attribute topologicalAddress, ANSI code page; empty: unlocated
    CString typeName;                        // upper-case elementary name, or the name of the type definition
    std::uint32_t typeCode;                  // unclassified until SetTypeName
    VARTYPE varType = VT_EMPTY;              // under which the host reads the value
    std::uint16_t block = 0;                 // AreaBlock
    std::uint32_t offset = 0;                // AreaOffset, bytes
    std::uint32_t size = 0;                  // Size, bytes
    std::uint16_t accessRights = 0;          // 1 read, 2 write, 3 both, 0 none; from RequestAccessRight
    std::uint8_t extractBit = kNoExtractBit; // ExtractBit: the variable is this bit of its word
    CString declaredTypeText;                // display name of a derived type; empty for an elementary one
};
