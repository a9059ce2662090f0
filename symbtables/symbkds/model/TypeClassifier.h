// What a variable or member holds, by the name of its type.
#pragma once

#include "symbkds/model/ElementaryTypes.h"

class MAPOFDDTDEF;

struct ValueType
{
    std::uint32_t typeCode;
    VARTYPE varType;
};

// How one kind of record classifies its type.
struct ClassifierRules
{
    NameCase nameCase;                     // of elementary names
    VARTYPE ElementaryType::*arrayVarType; // which variant type an array gets
    VARTYPE structuredVarType;             // which one everything else gets
};

inline constexpr ClassifierRules kVariableRules{NameCase::Exact, &ElementaryType::arrayVarType,
                                                static_cast<VARTYPE>(VT_ARRAY | VT_UI1)};
inline constexpr ClassifierRules kMemberRules{NameCase::Ignored, &ElementaryType::memberArrayVarType, VT_EMPTY};

// Elementary, an array of an elementary type, or structured, which includes
// types that `types` does not know. An array declaration is registered in `types`.
ValueType ClassifyValueType(const CString& typeName, MAPOFDDTDEF& types, const ClassifierRules& rules);
