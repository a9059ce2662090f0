// The plug-in's exports, as symb/Exports.h describes them to hosts.
#pragma once

#include "symb/CSymb.h"

STDAPI_EXPORT NewSymb(CSymb** symbolTable);
STDAPI_EXPORT DeleteSymb(CSymb* symbolTable);
STDAPI_EXPORT GetSymbType(DWORD* typeCode);
