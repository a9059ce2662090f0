// The elementary types of the controller and their names.
#pragma once

#include "platform/com/Variant.h"
#include "platform/mfc/CString.h"

#include <cstdint>
#include <string_view>

struct ElementaryType
{
    std::string_view name;        // upper case
    std::uint32_t typeCode;       // of one value
    std::uint32_t sizeBytes;      // of one value; STRING[n] has n instead
    VARTYPE varType;              // under which the host reads one value
    std::uint32_t arrayCode;      // of an array of these; 0 when it counts as structured
    VARTYPE arrayVarType;         // of a variable that is such an array
    VARTYPE memberArrayVarType;   // of a member that is such an array: by width alone, the sign is lost
    std::uint32_t definitionCode; // that an array definition with these elements gets: by width and sign
};

enum class NameCase
{
    Exact,
    Ignored
};

// The elementary type that `name` names; STRING[n] is STRING. Null when there is none.
const ElementaryType* FindElementaryType(std::string_view name, NameCase nameCase);

// How many elementary types there are, and the place of one among them, counted from 0.
inline constexpr std::size_t kElementaryTypeCount = 16;
std::size_t ElementaryRowOf(const ElementaryType& type);

// The elementary type with this type code; null when there is none.
const ElementaryType* FindElementaryTypeByCode(std::uint32_t typeCode);

// Whether `typeName` names an elementary type. Makes `typeName` upper case in
// place; callers keep the changed name. On true `typeCode` and `sizeBytes` are
// set; on false `typeCode` is the unclassified code and `sizeBytes` stays.
bool ClassifyElementaryType(CString& typeName, std::uint32_t& sizeBytes, std::uint32_t& typeCode);
// The same, for the answer and for the code alone.
bool IsElementary(CString& typeName);
std::uint32_t ElementaryCodeOf(CString& typeName);

// The name of the kind of value that a type code stands for.
LPCSTR KindName(std::uint32_t typeCode);

// Replaces `kindName` by that name as a text. Raises CMemoryException.
void GetKindName(std::uint32_t typeCode, VARIANT& kindName);
