// What no export can bring about: parameters passed by reference, memory areas, an identified project.
#include "support/ExportBuilder.h"
#include "support/InProcessTable.h"
#include "support/Split.h"
#include "symbkds/model/CSymbXMLDDTMember.h"
#include "symbkds/model/CSymbXMLDDTStructDef.h"
#include "symbkds/model/CSymbXMLDFBDef.h"
#include "symbkds/resolve/CSymbKorvaAnalyser.h"

#include <gtest/gtest.h>

namespace {

const char kPlant[] = "TYPE Sub STRUCT X INT @2 size 2 Y REAL @4 size 4 block 3 END\n"
                      "DFB Inner IN A INT @6 size 2 S Sub @8 size 8 block 65535 END\n"
                      "DFB Outer IN I Inner @10 size 20 block 2 A DINT @40 size 4 'speed' S Sub @48 size 8 block 4\n"
                      "  T ARRAY[0..1] OF Sub @60 size 17 M ARRAY[1..2,0..1] OF INT @80 size 8 W WORD @90 size 2 END\n"
                      "TYPE Holder STRUCT O Outer @1000 size 100 block 1 N Nowhere V INT @4 size 2 END\n"
                      "VAR O Outer block 7 @100 size 100 VAR H Holder";

struct CLoadedTable : CInProcessTable
{
    CLoadedTable() { EXPECT_EQ(table.Load(WriteExport(folder, kPlant)), 0); }

    CTemporaryFolder folder;
};

TEST(Definition, WritesTheTextsOfAValue)
{
    CLoadedTable plant;
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
        EXPECT_TRUE(plant.Definition("Outer")->ResolvePath(&plant.symb.GetTypes(), path, 1, true, descriptor, typeName,
                                                           comment, address));
        EXPECT_EQ(address.View(), row.address) << row.path;
        EXPECT_EQ(comment.View(), row.comment) << row.path;
    }
    plant.IdentificationWord(2) = plant.IdentificationWord(5) = 100;
    plant.IdentificationWord(3) = 0xFFFFFFFF;
    plant.IdentificationWord(4) = 8;
    EXPECT_EQ(plant.table.Resolve("O.A").deviation, " byte 64 of the descriptor is 7"); // the sum of words 4 and 5
}

constexpr std::uint32_t kBool = 0x02290148, kByte = 0x01290148;

struct AddressCase
{
    std::uint16_t block;
    std::uint32_t offset;
    std::uint8_t bit;
    std::int32_t size;
    const char* text;
    std::uint32_t typeCode = kBool;
    std::int32_t indirection = 1;
};

struct AreaCase
{
    MemoryArea words, bits;
    std::vector<AddressCase> rows;
};

const AreaCase kAreas[] = {
    // Objects of words 10 to 100 from byte 20 of block 5 on, bits 4 to 29 from byte 8 of block 6 on.
    {{100, 10, 5, 20},
     {30, 4, 6, 8},
     {{5, 19, 255, 2, ""},
      {5, 20, 255, 2, "%MW10"},
      {5, 21, 255, 2, "%MW10"},
      {5, 22, 255, 4, "%MD11"},
      {5, 44, 255, 8, ""},
      {5, 44, 3, 2, "%MW22.3"},
      {5, 45, 3, 4, "%MW22.11"},
      {5, 45, 7, 1, "%MW22.15"},
      {5, 45, 8, 2, ""},
      {5, 44, 8, 2, "%MW22.8"},
      {5, 44, 254, 2, "%MW22.254"},
      {5, 44, 255, 1, "%MW22.0"},
      {5, 45, 255, 1, "%MW22.8"},
      {5, 44, 255, 1, "", kByte},
      {5, 45, 0, 1, "%MW22.8", kByte},
      {5, 200, 255, 2, "%MW100"},
      {5, 202, 255, 2, ""},
      {4, 44, 255, 2, ""},
      {6, 7, 255, 1, ""},
      {6, 8, 255, 1, "%M4"},
      {6, 33, 2, 7, "%M29", kByte},
      {6, 34, 255, 1, ""},
      {5, 44, 255, 2, "", kBool, 2},
      {5, 44, 255, 2, "", kBool, 3},
      {6, 8, 255, 1, "", kBool, 2},
      {5, 44, 255, 2, "%MW22", kBool, 0},
      {5, 44, 255, 2, "%MW22", kBool, -1}}},
    // Both areas end by the number of words; what the word area holds is none of the bit area's.
    {{100, 0, 5, 0},
     {900, 0, 5, 0},
     {{5, 24, 255, 2, "%MW12"},
      {5, 25, 3, 2, "%MW12.11"},
      {5, 24, 255, 4, "%MD12"},
      {5, 25, 255, 1, "%MW12.8"},
      {5, 200, 255, 2, "%MW100"},
      {5, 201, 255, 2, ""},
      {5, 202, 255, 2, ""},
      {5, 24, 255, 8, ""}}},
    {{100, 0, 5, 0},
     {900, 0, 5, 10},
     {{5, 200, 255, 8, ""}, {5, 201, 255, 8, "%M191"}, {5, 210, 255, 8, "%M200"}, {5, 211, 255, 8, ""}}},
    // Ends wrap around at 32 bits.
    {{100, 0, 5, 0xFFFFFFF0}, {}, {{5, 0xFFFFFFF2, 255, 2, ""}}},
    {{0x80000001, 0, 5, 0},
     {9, 0, 6, 0},
     {{5, 2, 255, 2, "%MW1"}, {5, 4, 255, 2, ""}, {6, 2, 255, 1, "%M2"}, {6, 3, 255, 1, ""}}},
};

TEST(MemoryAreas, GiveWhatLiesInThemAnAddress)
{
    for (const AreaCase& area : kAreas) {
        CInProcessTable table;
        table.WordArea() = area.words;
        table.BitArea() = area.bits;
        for (const AddressCase& row : area.rows) {
            CString text("before");
            table.symb.FormatMemoryAddress(row.indirection, row.block, row.offset, row.bit, row.size, row.typeCode,
                                           text);
            EXPECT_EQ(text, row.text) << "area " << &area - kAreas << ", " << row.block << ":" << row.offset << " bit "
                                      << int{row.bit} << " size " << row.size;
        }
    }
}

} // namespace
