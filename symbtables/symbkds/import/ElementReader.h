// Reading values from the elements of an export.
#pragma once

#include "korvaproservices/KorvaProServices.h"
#include "platform/mfc/CBstr.h"
#include "platform/mfc/CInterfacePtr.h"
#include "platform/mfc/CString.h"

#include <cstdint>

// The names by which an import asks for values, made once for all its elements.
struct ImportKeys
{
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
};

// UTF-8 of an attribute and of a child's text; empty when the component does not deliver it.
CString ReadAttribute(WalkElement& element, const CBstr& attribute);
CString ReadChildText(WalkElement& element, const CBstr& tag);

// Calls `read` with the first `count` elements of a list; a position that delivers none is passed over.
template <class Read>
void ForEachItem(WalkList& list, LONG count, Read&& read)
{
    for (LONG i = 0; i < count; ++i) {
        CInterfacePtr<WalkElement> element;
        list.Item(i, element.Put());
        if (element)
            read(*element.Get());
    }
}

// When something that a call delivered counts.
enum class Counts
{
    Delivered, // whatever result came with it
    AfterOk    // only with S_OK
};

// What an import takes from the look-up of a property.
struct PropertyRules
{
    Counts list = Counts::AfterOk;      // of the selection
    Counts element = Counts::Delivered; // of the list
};

// The look-up of the child element <attribute name="KEY" value="..."/>.
struct PropertyRead
{
    bool hasList = false;    // the selection delivered a list that counts
    bool hasElement = false; // the list delivered an element that counts
    bool allOk = false;      // every call returned S_OK
    HRESULT result = S_OK;   // of the last call made
    CBstr value;             // null when it was not delivered

    // The value as a number, 0 for a text without one; `missing` when there is no such element.
    std::int32_t Number(std::int32_t missing) const;
};

PropertyRead ReadProperty(WalkElement& element, const ImportKeys& keys, const CBstr& key, PropertyRules rules = {});
