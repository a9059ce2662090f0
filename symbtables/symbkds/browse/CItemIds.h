#pragma once

#include "platform/mfc/CString.h"
#include "symbkds/browse/TaskText.h"

#include <string>

// The item identifiers of the entries of one listing: the identifier under which the host knows what is listed (UTF-16,
// null counting as empty), and the entry.
//
// The parent's part is converted once, together with the character that follows it, which in some code pages may be the
// second half of a character: what stands behind it may be converted apart.
class CItemIds
{
public:
    // Of variables: joined by "!". All of these may raise CMemoryException.
    static CItemIds OfVariables(LPCWSTR parentId) { return Joined(parentId, "!"); }
    // Of members and parameters: joined by ".".
    static CItemIds OfMembers(LPCWSTR parentId) { return Joined(parentId, "."); }
    // Of the elements of the array at `path`. Their entries, which are `prefix` and an index, repeat the end of the
    // path: only what follows goes on behind the parent's identifier, also when the path leaves a bracket open.
    static CItemIds OfElements(LPCWSTR parentId, const CString& path, const CString& prefix);

    // The length of the parent's part, UTF-16 units.
    std::size_t HeadUnits() const { return head.size(); }
    // The identifier of an entry, which is given in UTF-16.
    TaskText BuildItemId(const TaskText& entry) const;

private:
    static CItemIds Joined(LPCWSTR parentId, LPCSTR separator);

    std::basic_string<WCHAR> head;
    std::size_t repeatedUnits = 0; // of an entry that stand in `head` already
};
