// One lookup, in the host's own types.
#pragma once

#include "symb/CSymb.h"
#include "symbhost/plugin/CConsoleSink.h"

#include <string>

// What the symbol table answered for one name. Texts are UTF-8.
struct LookupAnswer
{
    std::string name; // as asked
    HRESULT result = E_FAIL;
    std::string message = {}; // of a failure, where one was sent
    std::string address = {};
    std::string comment = {};
    std::string typeName = {};
    std::string kindName = {};
    std::string customerString = {};
    AddressDescriptor descriptor = {}; // zero after a failure

    bool IsResolved() const { return SUCCEEDED(result); }
    bool IsBit() const { return descriptor.extraction == AddressDescriptor::kExtractBit; }
    bool IsByReference() const { return descriptor.indirection == AddressDescriptor::kByReference; }
};

// A name with a null inside is refused here, because the interface would see its first part only.
// Passes CMemoryException on.
LookupAnswer LookUp(CSymb& table, CConsoleSink& sink, const std::string& name);

// Whether a lookup of the name answers; its message is not kept.
bool IsAnswered(CSymb& table, const std::string& name);
