// The functions that a symbol-table plug-in exports.
//
// A host looks them up by their export names. Each answers E_INVALIDARG for a
// null argument and S_OK otherwise.
#pragma once

#include "symb/CSymb.h"

// Stores a new object through `symbolTable`. Passes CMemoryException on when
// memory is short; nothing is stored then.
using NewSymbFunction = HRESULT(WINAPI*)(CSymb** symbolTable);
constexpr LPCSTR kNewSymbExport = STDCALL_EXPORT_NAME("NewSymb", 4);

// Destroys an object of the same plug-in. No other call on the object may be
// under way.
using DeleteSymbFunction = HRESULT(WINAPI*)(CSymb* symbolTable);
constexpr LPCSTR kDeleteSymbExport = STDCALL_EXPORT_NAME("DeleteSymb", 4);

// Stores the type code of the plug-in's kind of symbol table.
using GetSymbTypeFunction = HRESULT(WINAPI*)(DWORD* typeCode);
constexpr LPCSTR kGetSymbTypeExport = STDCALL_EXPORT_NAME("GetSymbType", 4);
