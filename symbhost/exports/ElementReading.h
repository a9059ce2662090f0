// From elements of the export to records.
#pragma once

#include "korvaproservices/KorvaProServices.h"
#include "platform/mfc/CBstr.h"
#include "platform/mfc/CInterfacePtr.h"
#include "symbhost/exports/ExportRecords.h"
#include "symbkds/model/ExportKeys.h"

// Reads elements of any export.
class CElementReader
{
public:
    const ExportKeys& Keys() const { return keys; }
    ExportItem ReadItem(WalkElement& element) const;
    std::string ReadName(WalkElement& element) const;
    std::string ReadTypeName(WalkElement& element) const;
    ExportType ReadDerivedType(WalkElement& source) const;
    ExportType ReadFunctionBlock(WalkElement& source) const;

private:
    ExportSection ReadSection(WalkElement& element) const;
    // False when there is no such property.
    bool Property(WalkElement& element, const CBstr& key, CBstr& text) const;
    ExportNumber Number(WalkElement& element, const CBstr& key) const;

    const ExportKeys keys{};
};

// Calls `read` with each element of a list, which may be null.
template <class Read>
void ForEachElement(WalkList* list, Read&& read)
{
    CInterfacePtr<WalkElement> element;
    while (list && list->Next(element.Put()) == S_OK && element)
        read(*element.Get());
}
