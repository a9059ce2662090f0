#pragma once

#include "platform/mfc/CMap.h"

#include <cstdint>
#include <memory>
#include <vector>

class CSymbXMLDDTArrayDef;
class CSymbXMLDDTDef;
class CSymbXml;

// The derived types of a symbol table, found by their names in any case. Owns
// every definition until it is emptied.
//
// Not locked: used only under the lock of the symbol table.
class MAPOFDDTDEF
{
public:
    using Definitions = CMap<CString, LPCSTR, CSymbXMLDDTDef*, CSymbXMLDDTDef*>;

    // `symbolTable`, the owner, numbers the anonymous arrays.
    explicit MAPOFDDTDEF(CSymbXml* symbolTable);
    MAPOFDDTDEF(const MAPOFDDTDEF&) = delete;
    MAPOFDDTDEF& operator=(const MAPOFDDTDEF&) = delete;
    virtual ~MAPOFDDTDEF();

    // Registers a definition under a name. One registered before under that
    // name is found no more, but lives until DropDisplaced: a caller further up may
    // stand on it.
    void AddTypeDef(const CString& name, std::unique_ptr<CSymbXMLDDTDef> definition);
    // Splits an array of two or more dimensions into a chain of one-dimensional
    // definitions and registers them, the inner ones under generated names, the
    // outermost under `outerName` (null: a generated name too). Returns the outermost.
    CSymbXMLDDTArrayDef* AddArrayChain(const CSymbXMLDDTArrayDef& array, const CString* outerName);

    // The definition of a type name. An array declaration that is not known yet
    // is registered first, unless it has more than ten dimensions. False with a
    // null definition when there is none.
    bool FindTypeDef(const CString& name, CSymbXMLDDTDef*& definition);
    // Whether a name is that of a derived type, and of a function block type; both register as FindTypeDef does.
    bool IsDerivedType(const CString& name);
    bool IsDFBType(const CString& name);
    // The same for what is registered already; nothing is added.
    const CSymbXMLDDTDef* FindRegistered(const CString& name) const;
    bool IsRegisteredDFB(const CString& name) const;

    // Grows with every registration: what was found out under one revision holds until the next.
    std::uint64_t GetRevision() const { return revision; }
    // In the order of first registration; an enumeration goes on while types are registered.
    const Definitions& GetDefinitions() const { return definitions; }

    // Destroys the definitions whose names lead to others by now. No caller may hold one.
    void DropDisplaced();
    // Destroys every definition.
    void RemoveAllTypeDefs();

private:
    // Registers what the declaration `name` describes; false when it must be refused.
    bool AddDeclaredArray(const CString& name, const CString& key, CSymbXMLDDTDef*& definition);

    CSymbXml* owner;
    Definitions definitions; // upper-case name to definition
    std::uint64_t revision = 0;
    std::vector<std::unique_ptr<CSymbXMLDDTDef>> displaced;
};
