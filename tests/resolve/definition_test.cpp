// What the definitions do that no export can ask of them through a lookup.
#include "resolve/InProcessTable.h"
#include "symbkds/model/CSymbXMLDDTArrayDef.h"
#include "symbkds/resolve/CSymbKorvaAnalyser.h"

namespace {

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
        for (const char* parameter : {"I", "A", "S", "T", "M", "W"})
            table.SetIndirection("Outer", parameter, row.outerKind);
        for (const char* parameter : {"A", "S"})
            table.SetIndirection("Inner", parameter, row.innerKind);
        EXPECT_EQ(table.Lookup(row.name), row.text) << row.name << " kinds " << row.outerKind << row.innerKind;
    }
}

struct FoundCase
{
    const char* type;
    const char* path;
    const char* found; // its display name, block, offset and size; empty when nothing is found
};

const FoundCase kFound[] = {
    {"Sub", "V", "Sub 9+100/40"},
    {"Sub", "V.X", ""}, // elementary
    {"Sub", "V.Z", ""},
    {"Sub", "V[0]", ""},
    {"Holder", "V.O", "Outer 10+1100/100"}, // blocks are added here
    {"Holder", "V.o.S", "Sub 14+1148/8"},
    {"Holder", "V.O.S.7", "Sub 14+1148/8"}, // a bit is no level
    {"Holder", "V.O.I.S", "Sub 11+1118/8"}, // modulo 2^16
    {"Holder", "V.N", ""},
    {"Holder", "V.O.T", "ARRAY[0..1] OF Sub 10+1160/17"},
    {"Holder", "V.O.T[1]", "Sub 10+1168/8"},
    {"Holder", "V.O.T[2]", ""},
    {"Holder", "V.O.T.X", "Sub 10+1160/8"}, // a name reads as index 0
    {"Holder", "V.O.T[0].X", ""},
    {"Holder", "V.O.M", "ARRAY[1..2,0..1] OF INT 10+1180/8"},
    {"Holder", "V.O.M[2]", "ARRAY[0..1] OF INT 10+1184/4"},
    {"Holder", "V.O.M[2][0]", ""},
    {"ARRAY[0..3] OF Sub", "V", "ARRAY[0..3] OF Sub 9+100/40"},
    {"ARRAY[0..3] OF Sub", "V[3]", "Sub 9+130/10"},
    {"ARRAY[0..3] OF Nowhere", "V[3]", ""},
    {"ARRAY[3..0] OF Sub", "V[1]", ""},
    {"ARRAY[-2147483648..2147483647] OF Sub", "V[0]", ""},
    {"ARRAY[-2147483648..2147483646] OF Sub", "V[0]", "Sub 9+100/0"},
};

TEST(Definition, FindsTheDefinitionAtAPath)
{
    CInProcessTable table(kPlant);
    for (const FoundCase& row : kFound) {
        CString text(row.path);
        CSymbKorvaAnalyser path;
        ASSERT_TRUE(path.Analyse(text, 0));
        CSymbXMLDDTDef* definition = table.Definition(row.type);
        ASSERT_TRUE(definition) << row.type;
        CSymbXMLDDTDef* found = nullptr;
        std::uint16_t block = 9;
        std::uint32_t offset = 100, size = 40;
        std::string shown;
        if (definition->FindDefinitionAtPath(path, 1, &table.symb.GetTypes(), found, block, offset, size))
            shown = std::string(found->GetDisplayName().View()) + " " + std::to_string(block) + "+" +
                    std::to_string(offset) + "/" + std::to_string(size);
        EXPECT_EQ(shown, row.found) << row.type << " " << row.path;
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

TEST(Definition, CountsElementsFromTheLowerBound)
{
    const struct
    {
        const char* declaration;
        const char* index;
        std::int64_t element; // -1: refused
    } rows[] = {{"ARRAY[1..3] OF INT", "1", 0},
                {"ARRAY[1..3] OF INT", "3", 2},
                {"ARRAY[1..3] OF INT", "4", -1},
                {"ARRAY[1..3] OF INT", "0", -1},
                {"ARRAY[1..3] OF INT", "", -1},
                {"ARRAY[0..3] OF INT", "", 0},
                {"ARRAY[-5..5] OF INT", " -5x", 0},
                {"ARRAY[-5..5] OF INT", "+2,9", 7},
                {"ARRAY[-5..5] OF INT", "--3", 5},
                {"ARRAY[3..1] OF INT", "2", -1},
                {"ARRAY[-2147483648..2147483647] OF INT", "2147483647", 4294967295},
                {"ARRAY[-2147483648..2147483647] OF INT", "-99999999999999999999999", 0},
                {"ARRAYX", "0", 0}};
    for (const auto& row : rows) {
        std::uint32_t element = 0;
        const bool inside = CSymbXMLDDTArrayDef(row.declaration).ElementIndex(row.index, element);
        EXPECT_EQ(inside ? std::int64_t{element} : -1, row.element) << row.declaration << " " << row.index;
    }
}

} // namespace
