#pragma once

#include "platform/com/Variant.h"
#include "platform/mfc/CString.h"
#include "symb/AddressDescriptor.h"

#include <cstdint>

class CDumpLine;
class CSymbKorvaAnalyser;
class MAPOFDDTDEF;
struct BrowseRequest;

// A derived type of the project: a structure, an array type or a function block type.
//
// The order of the virtual operations is part of the model: also those that nobody calls today (IsStruct,
// UpdateMemberTypes, IsConsistent, GetTypeCode, GetVarType, SetTypeFromElementCode) keep their places.
//
// The type dictionary owns every definition. Definitions are read and changed
// only under the lock of the symbol table; lookups and listings change no more
// than the case of type names and the classification of members.
class CSymbXMLDDTDef
{
public:
    CSymbXMLDDTDef() = default;
    CSymbXMLDDTDef(const CSymbXMLDDTDef&) = delete;
    CSymbXMLDDTDef& operator=(const CSymbXMLDDTDef&) = delete;
    virtual ~CSymbXMLDDTDef();

    virtual bool IsDFB() const { return false; }
    virtual bool IsStruct() const { return false; }
    virtual bool IsArray() const = 0;

    // Finds the definition of the derived value that the levels of `path` from
    // `level` on designate below a value of this type. `block`, `offset` and
    // `size` describe this value at first and the found one after success.
    virtual bool FindDefinitionAtPath(const CSymbKorvaAnalyser& path, int level, MAPOFDDTDEF* types,
                                      CSymbXMLDDTDef*& found, std::uint16_t& block, std::uint32_t& offset,
                                      std::uint32_t& size) = 0;

    // Resolves the levels of `path` from `level` to its end. `descriptor`
    // describes the whole value of this type at first. `located`: offsets are
    // added to the offset; otherwise to the relative offset, and the size goes
    // to the relative size too. After a failure descriptor and texts hold partial values.
    virtual bool ResolvePath(MAPOFDDTDEF* types, const CSymbKorvaAnalyser& path, int level, bool located,
                             AddressDescriptor& descriptor, CString& typeName, CString& comment, CString& address) = 0;

    // Appends the members or elements that the request wants to its names and kinds.
    virtual HRESULT BrowseChildren(const BrowseRequest& request) = 0;

    // Takes the members out whose type is a function block; the first member stays whatever it is.
    virtual void RemoveDFBMembers(MAPOFDDTDEF* types) = 0;
    // Whether this is an array, or an array of arrays, of the elementary type with this code.
    virtual bool IsArrayOf(std::uint32_t elementCode, MAPOFDDTDEF* types) = 0;
    // Classifies the types of members or elements anew.
    virtual void UpdateMemberTypes(MAPOFDDTDEF*) {}
    // Writes the definition's block of the dictionary dump; false makes the dump incomplete. Raises CFileException.
    virtual bool Dump(CDumpLine& line) const = 0;
    virtual bool IsConsistent(MAPOFDDTDEF* types) const = 0;

    // The type as shown to people.
    virtual CString GetDisplayName() const { return name; }
    virtual std::uint32_t GetTypeCode() const;
    virtual VARTYPE GetVarType() const { return VT_EMPTY; }
    virtual void SetTypeFromElementCode(std::uint32_t) {}

    CString name; // as registered; generated for the inner parts of an array
    std::uint32_t reservedNumber = 0;
    CString displayText; // an anonymous array's declaration
};
