#pragma once

#include "platform/mfc/CBstr.h"

// The names of elements, attributes and properties by which values of an export are asked for, made once for many.
struct ExportKeys
{
    // Elements
    const CBstr derivedType{OLESTR("DDTSource")};
    const CBstr functionBlock{OLESTR("FBSource")};
    const CBstr dataBlock{OLESTR("dataBlock")};
    const CBstr variables{OLESTR("variables")};
    const CBstr array{OLESTR("array")};
    const CBstr structure{OLESTR("structure")};
    const CBstr comment{OLESTR("comment")};
    const CBstr attribute{OLESTR("attribute")}; // a property: a name and a value
    // Attributes
    const CBstr derivedTypeName{OLESTR("DDTName")};
    const CBstr functionBlockName{OLESTR("nameOfFBType")};
    const CBstr name{OLESTR("name")};
    const CBstr typeName{OLESTR("typeName")};
    const CBstr topologicalAddress{OLESTR("topologicalAddress")};
    const CBstr value{OLESTR("value")};
    // Properties
    const CBstr areaBlock{OLESTR("AreaBlock")};
    const CBstr areaOffset{OLESTR("AreaOffset")};
    const CBstr size{OLESTR("Size")};
    const CBstr extractBit{OLESTR("ExtractBit")};
    const CBstr customerString{OLESTR("CustomerString")};
    const CBstr requestAccessRight{OLESTR("RequestAccessRight")};
    const CBstr isVariableHidden{OLESTR("IsVariableHidden")};
};
