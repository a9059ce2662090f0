// What the definitions do that no export can ask of them through a lookup.
#include "support/ExportBuilder.h"
#include "support/HostView.h"
#include "support/Split.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/model/CSymbXMLDDTMember.h"
#include "symbkds/model/CSymbXMLDFBDef.h"
#include "symbkds/resolve/CSymbKorvaAnalyser.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

// A symbol table of this program, whose definitions a test can change.
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

    // Of parameters; the imports do not set it.
    void SetIndirection(const char* block, const char* parameters, std::uint16_t kind)
    {
        for (const std::string& parameter : Split(parameters))
            static_cast<CSymbXMLDFBDef*>(Definition(block))->members.Find(parameter.c_str())->indirectionKind = kind;
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

const char kPlant[] = "TYPE Sub STRUCT X INT @2 size 2 Y REAL @4 size 4 block 3 END\n"
                      "DFB Inner IN A INT @6 size 2 S Sub @8 size 8 block 65535 END\n"
                      "DFB Outer IN I Inner @10 size 20 block 2 A DINT @40 size 4 'speed' S Sub @48 size 8 block 4\n"
                      "  T ARRAY[0..1] OF Sub @60 size 17 M ARRAY[1..2,0..1] OF INT @80 size 8 W WORD @90 size 2 END\n"
                      "TYPE Holder STRUCT O Outer @1000 size 100 block 1 N Nowhere V INT @4 size 2 END\n"
                      "VAR O Outer block 7 @100 size 100 VAR H Holder";

struct IndirectionCase
{
    std::uint16_t outerKind; // of every parameter of Outer
    std::uint16_t innerKind; // of every parameter of Inner
    const char* name;
    const char* text; // by type code
};

const IndirectionCase kIndirections[] = {
    {0, 0, "O.A", "DINT +140 size 4 block 7"},
    {1, 0, "O.A", "DINT +140 size 4 block 7"},
    {2, 0, "O.A", "DINT +140 size 4 block 7 by reference relative +0/4 access 1"},
    {2, 0, "O.W.3", "BOOL +190 size 2 block 7 bit 3 by reference relative +0/2 access 1"},
    {2, 0, "O.S", "structured +148 size 8 block 7 by reference relative +0/8 access 1"},
    {3, 0, "O.S", "structured +148 size 8 block 7"},
    // Below a parameter passed by value the path stays located, below any other it is relative.
    {0, 0, "O.S.Y", "REAL +148 size 4 block 7 relative +4/4"},
    {1, 0, "O.S.Y", "REAL +152 size 4 block 7"},
    {2, 0, "O.S.Y", "REAL +148 size 4 block 7 by reference relative +4/4 access 1"},
    {1, 0, "O.T[1].X", "INT +170 size 2 block 7"},
    {2, 0, "O.T[1].X", "INT +160 size 2 block 7 by reference relative +10/2 access 1"},
    {1, 0, "O.M[2]", "INT[] +184 size 4 block 7"},
    {2, 0, "O.M[2]", "INT[] +180 size 4 block 7 by reference relative +4/4 access 1"},
    // The innermost function block on the path decides over the reference.
    {0, 0, "O.I.A", "E_INVALIDARG, silent"},
    {1, 0, "O.I.A", "INT +116 size 2 block 7"},
    {2, 0, "O.I.A", "E_INVALIDARG, silent"},
    {1, 0, "O.I.S", "structured +118 size 8 block 7"},
    {1, 2, "O.I.A", "INT +116 size 2 block 7 by reference relative +0/2 access 1"},
    {2, 0, "O.I.S", "E_INVALIDARG, silent"},
    {2, 0, "O.I.S.Y", "REAL +110 size 4 block 7 relative +12/4"},
    {0, 2, "O.I.S.Y", "REAL +110 size 4 block 7 by reference relative +12/4 access 1"},
    {1, 1, "O.I.S.Y", "REAL +122 size 4 block 7"},
    {2, 1, "O.I.S.Y", "REAL +114 size 4 block 7 relative +8/8"}, // located again, the outer reference forgotten
};

TEST(Definition, PassesParametersByValueOrReference)
{
    CInProcessTable table(kPlant);
    for (const IndirectionCase& row : kIndirections) {
        table.SetIndirection("Outer", "I|A|S|T|M|W", row.outerKind);
        table.SetIndirection("Inner", "A|S", row.innerKind);
        EXPECT_EQ(table.Lookup(row.name), row.text) << row.name << " kinds " << row.outerKind << row.innerKind;
    }
}

TEST(Definition, WritesTheTextsOfAValue)
{
    CInProcessTable table(kPlant);
    const struct
    {
        const char* path;
        const char* address;
        const char* comment;
    } rows[] = {{"V.A", "U-DINT (B:7 - O:140) ", "speed"},
                {"V.S", "U-SUB (B:7 - O:148) ", ""},
                {"V.M[1][1]", "U-INT (B:7 - O:180) ", ""}, // what is relative does not show
                {"V.T[1]", "before", "SUB"}};
    for (const auto& row : rows) {
        CString text(row.path), typeName, comment("before"), address("before");
        CSymbKorvaAnalyser path;
        ASSERT_TRUE(path.Analyse(text, 0));
        AddressDescriptor descriptor{};
        descriptor.block = 7;
        descriptor.offset = 100;
        EXPECT_TRUE(table.Definition("Outer")->ResolvePath(&table.symb.GetTypes(), path, 1, true, descriptor, typeName,
                                                           comment, address));
        EXPECT_EQ(address.View(), row.address) << row.path;
        EXPECT_EQ(comment.View(), row.comment) << row.path;
    }
}

} // namespace
