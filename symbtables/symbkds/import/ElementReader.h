// Reading values from the elements of an export.
#pragma once

#include "korvaproservices/KorvaProServices.h"
#include "platform/mfc/CBstr.h"
#include "platform/mfc/CInterfacePtr.h"
#include "platform/mfc/CString.h"
#include "symbkds/model/ExportKeys.h"

#include <cstdint>

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

PropertyRead ReadProperty(WalkElement& element, const ExportKeys& keys, const CBstr& key, PropertyRules rules = {});
