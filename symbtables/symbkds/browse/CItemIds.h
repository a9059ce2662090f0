#pragma once

#include "platform/mfc/CString.h"
#include "symbkds/browse/TaskText.h"

#include <string>

// The item identifiers of the entries below one path: the parent's identifier
// and the entry's name, joined by "!" at the root and by "." below it. Only an
// element of an array, whose entry repeats the path's last component, goes on
// with its "[".
//
// The parent's part is converted once, with the joining character. No code page
// has a character that goes on behind one of these, so both parts may be
// converted apart.
class CItemIds
{
public:
    // `path` and `parentId` (null or UTF-16), the browse path and the host's identifier of it. Raises CMemoryException.
    CItemIds(LPCSTR path, LPCWSTR parentId);

    // The identifier of an entry, of which `wideEntry` is the UTF-16 form.
    TaskText Make(std::string_view entry, const TaskText& wideEntry) const;

private:
    CString elementPrefix; // of the entries of an array; empty at the root
    std::size_t elementPrefixUnits = 0;
    std::basic_string<WCHAR> ofElements; // the parent's part of their identifiers
    std::basic_string<WCHAR> ofOthers;
};
