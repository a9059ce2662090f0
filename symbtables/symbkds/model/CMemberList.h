#pragma once

#include "platform/mfc/CArray.h"
#include "platform/mfc/CMap.h"

#include <memory>
#include <vector>

class CSymbXMLDDTMember;
class MAPOFDDTDEF;

// The members of a structure or function block in the order of the export, found by name.
class CMemberList
{
public:
    CMemberList();
    CMemberList(const CMemberList&) = delete;
    CMemberList& operator=(const CMemberList&) = delete;
    ~CMemberList();

    int GetCount() const { return members.GetSize(); }
    CSymbXMLDDTMember* GetAt(int position) const { return members[position]; }

    // Appends. Of two members with one name (in any case) the later is found.
    void Add(std::unique_ptr<CSymbXMLDDTMember> member);
    // The member of that name in any case; null when there is none, and for an empty name.
    CSymbXMLDDTMember* Find(CString name) const;

    // Whether the type names of all visible members are upper case because a listing has gone over them once.
    bool AreTypeNamesUpper() const { return typeNamesUpper; }
    void NoteTypeNamesUpper() { typeNamesUpper = true; }

    // Classifies every member's type anew.
    void UpdateTypes(MAPOFDDTDEF* types);
    // Destroys the members at the marked positions; later ones move down, their
    // names with them. A name that led to a destroyed member leads nowhere.
    void Remove(const std::vector<bool>& marked);

private:
    using CMemberIndex = CMap<CString, LPCSTR, int, int>;

    CArray<CSymbXMLDDTMember*, CSymbXMLDDTMember*> members; // owned
    CMemberIndex index;                                     // upper-case name to position
    bool typeNamesUpper = false;
};
