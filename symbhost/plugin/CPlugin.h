#pragma once

#include "platform/win32/Library.h"
#include "symb/Exports.h"

#include <memory>
#include <string>
#include <type_traits>

// Gives an object back to the plug-in that made it.
struct CSymbDeleter
{
    DeleteSymbFunction deleteSymb;
    void operator()(CSymb* symbolTable) const { deleteSymb(symbolTable); }
};
using SymbHolder = std::unique_ptr<CSymb, CSymbDeleter>;

// A symbol-table plug-in, loaded as a server loads it and known by its three exports alone.
class CPlugin
{
public:
    // Loads the library at `path`; empty: the one of this installation. Raises
    // CHostError when it cannot be loaded or is no symbol-table plug-in.
    explicit CPlugin(const std::string& path);

    DWORD TypeCode() const;
    // A new symbol table; it must be gone before the plug-in is. Raises CHostError, passes CMemoryException on.
    SymbHolder NewSymbolTable() const;

private:
    struct CLibraryFree
    {
        void operator()(HMODULE library) const { FreeLibrary(library); }
    };

    FARPROC Export(LPCSTR name) const;

    std::string path;
    std::unique_ptr<std::remove_pointer_t<HMODULE>, CLibraryFree> library;
    NewSymbFunction newSymb;
    DeleteSymbFunction deleteSymb;
    GetSymbTypeFunction getSymbType;
};
