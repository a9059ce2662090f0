// The elementary types, as the host's documents list them.
#pragma once

#include "platform/com/Variant.h"

#include <cstdint>

struct Elementary
{
    const char* name;
    std::uint32_t size;
    std::uint32_t code;                      // high half of the type code
    VARTYPE varType, ofVariables, ofMembers; // of one value, and of variables and members that are arrays of them
    std::uint32_t definitionCode;            // high half of the code of array types; 0: structured
    bool plain = false;                      // a variable is served by its plain name
};
inline constexpr Elementary kElementary[] = {{"BOOL", 1, 0x0229, 11, 0x200B, 0x200B, 0x0229, true},
                                             {"EBOOL", 1, 0x0429, 11, 0x200B, 0x200B, 0x0429, true},
                                             {"INT", 2, 0x0A59, 2, 0x2002, 0x2012, 0x0A59, true},
                                             {"UINT", 2, 0x2259, 18, 0x2012, 0x2012, 0x2259, true},
                                             {"WORD", 2, 0x00A9, 18, 0x2012, 0x2012, 0x2259, true},
                                             {"DINT", 4, 0x0659, 3, 0x2003, 0x2013, 0x0659},
                                             {"UDINT", 4, 0x1259, 19, 0x2013, 0x2013, 0x1259},
                                             {"DWORD", 4, 0x0069, 19, 0x2013, 0x2013, 0x1259},
                                             {"REAL", 4, 0x0551, 4, 0x2004, 0x2013, 0x0551},
                                             {"BYTE", 1, 0x0129, 17, 0x2011, 0, 0},
                                             {"STRING", 16, 0x0012, 17, 0x2011, 0, 0},
                                             {"STRING[5]", 5, 0x0012, 17, 0x2011, 0, 0},
                                             {"WSTRING", 2, 0x0022, 18, 0x2011, 0, 0x2259},
                                             {"TOD", 4, 0x0404, 19, 0x2011, 0, 0x1259},
                                             {"TIME", 4, 0x0091, 19, 0x2011, 0, 0x1259},
                                             {"DATE", 4, 0x0204, 19, 0x2011, 0, 0x1259},
                                             {"DT", 8, 0x0104, 5, 0x2011, 0, 0}};
