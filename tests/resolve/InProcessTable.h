// A symbol table of this program, whose definitions a test can change.
#pragma once

#include "support/ExportBuilder.h"
#include "support/HostView.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/model/CSymbXMLDDTMember.h"
#include "symbkds/model/CSymbXMLDDTStructDef.h"
#include "symbkds/model/CSymbXMLDFBDef.h"

#include <gtest/gtest.h>

#include <cstdlib>

struct CInProcessTable
{
    explicit CInProcessTable(std::string_view exportText)
    {
        CComScope com;
        EXPECT_EQ(symb.Init(WriteExport(folder, exportText).c_str(), nullptr, FALSE, nullptr, 0), 0);
    }

    // The definition of a type; null when there is none.
    CSymbXMLDDTDef* Definition(const char* name)
    {
        CSymbXMLDDTDef* definition = nullptr;
        symb.GetTypes().FindTypeDef(name, definition);
        return definition;
    }

    // The imports do not set this.
    void SetIndirection(const char* block, const char* parameter, std::uint16_t kind)
    {
        CSymbXMLDDTDef* definition = Definition(block);
        ASSERT_TRUE(definition && definition->IsDFB());
        CSymbXMLDDTMember* member = static_cast<CSymbXMLDFBDef*>(definition)->members.Find(parameter);
        ASSERT_TRUE(member);
        member->indirectionKind = kind;
    }

    // As a host's view of the lookup shows it, without the texts of the properties.
    std::string Lookup(const char* name)
    {
        CString address, comment;
        AddressDescriptor* record = nullptr;
        PropertyEntry* properties = nullptr;
        DWORD count = 0;
        HostSymbol symbol;
        symbol.result = symb.SearchAndGetFF(0, name, address, comment, &record, &count, &properties);
        if (symbol.result != S_OK)
            return symbol.Text();
        symbol.typeName = TypeCodeName(record->typeCode);
        symbol.typeCode = record->typeCode;
        symbol.extraction = record->extraction;
        symbol.indirection = record->indirection;
        symbol.block = record->block;
        symbol.offset = record->offset;
        symbol.size = record->size;
        symbol.bit = record->bit;
        symbol.relativeOffset = record->relativeOffset;
        symbol.relativeSize = record->relativeSize;
        symbol.accessRight = record->accessRight;
        symbol.address = address.View();
        std::free(record);
        delete[] properties;
        return symbol.Text();
    }

    CTemporaryFolder folder;
    CSymbXml symb;
};
