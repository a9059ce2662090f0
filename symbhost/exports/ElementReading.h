// From elements of the export to records.
#pragma once

#include "korvaproservices/KorvaProServices.h"
#include "platform/mfc/CBstr.h"
#include "platform/mfc/CInterfacePtr.h"
#include "symbhost/exports/ExportRecords.h"

// The names by which values are asked for, made once for all elements.
class CElementReader
{
public:
    ExportItem ReadItem(WalkElement& element) const;
    std::string ReadName(WalkElement& element) const;
    ExportType ReadDerivedType(WalkElement& source) const;
    ExportType ReadFunctionBlock(WalkElement& source) const;

private:
    ExportSection ReadSection(WalkElement& element) const;
    // False when there is no such property.
    bool Property(WalkElement& element, const CBstr& key, CBstr& text) const;
    ExportNumber Number(WalkElement& element, const CBstr& key) const;

    const CBstr name{OLESTR("name")};
    const CBstr typeName{OLESTR("typeName")};
    const CBstr topologicalAddress{OLESTR("topologicalAddress")};
    const CBstr comment{OLESTR("comment")};
    const CBstr attribute{OLESTR("attribute")};
    const CBstr value{OLESTR("value")};
    const CBstr areaBlock{OLESTR("AreaBlock")};
    const CBstr areaOffset{OLESTR("AreaOffset")};
    const CBstr size{OLESTR("Size")};
    const CBstr extractBit{OLESTR("ExtractBit")};
    const CBstr customerString{OLESTR("CustomerString")};
    const CBstr requestAccessRight{OLESTR("RequestAccessRight")};
    const CBstr isVariableHidden{OLESTR("IsVariableHidden")};
    const CBstr derivedTypeName{OLESTR("DDTName")};
    const CBstr functionBlockName{OLESTR("nameOfFBType")};
    const CBstr arrayTag{OLESTR("array")};
    const CBstr structureTag{OLESTR("structure")};
};

// Calls `read` with each element of a list, which may be null.
template <class Read>
void ForEachElement(WalkList* list, Read&& read)
{
    CInterfacePtr<WalkElement> element;
    while (list && list->Next(element.Put()) == S_OK && element)
        read(*element.Get());
}
