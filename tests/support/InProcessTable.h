// A symbol table inside the test program, for what no export can bring about.
#pragma once

#include "support/HostView.h"
#include "support/PrivateField.h"
#include "support/RecordingSink.h"
#include "symbkds/frame/CSymbXml.h"

#include <array>

struct WordAreaField
{
    friend MemoryArea CSymbXml::*FieldOf(WordAreaField);
};
template struct PrivateField<WordAreaField, &CSymbXml::wordArea>;

struct BitAreaField
{
    friend MemoryArea CSymbXml::*FieldOf(BitAreaField);
};
template struct PrivateField<BitAreaField, &CSymbXml::bitArea>;

struct IdentificationField
{
    friend std::array<std::uint32_t, 8> CSymbXml::*FieldOf(IdentificationField);
};
template struct PrivateField<IdentificationField, &CSymbXml::projectIdentification>;

// The table and a host's view of it.
struct CInProcessTable
{
    CInProcessTable() = default;
    CInProcessTable(const CInProcessTable&) = delete;
    CInProcessTable& operator=(const CInProcessTable&) = delete;

    MemoryArea& WordArea() { return symb.*FieldOf(WordAreaField()); }
    MemoryArea& BitArea() { return symb.*FieldOf(BitAreaField()); }
    std::uint32_t& IdentificationWord(std::size_t index) { return (symb.*FieldOf(IdentificationField())).at(index); }

    // The definition of a type; null when there is none.
    CSymbXMLDDTDef* Definition(const char* name)
    {
        CSymbXMLDDTDef* definition = nullptr;
        symb.GetTypes().FindTypeDef(name, definition);
        return definition;
    }

    CSymbXml symb;
    CRecordingSink sink;
    CHostTable table{sink, AsHostSees<CSymb>(symb)};
};
