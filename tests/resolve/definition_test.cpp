// What no export and no host can bring about.
#include "support/ExportBuilder.h"
#include "support/InProcessTable.h"

#include <gtest/gtest.h>

namespace {

TEST(Lookup, TellsTheSumOfTwoWordsOfTheIdentification)
{
    CTemporaryFolder folder;
    CInProcessTable plant;
    EXPECT_EQ(plant.table.Load(WriteExport(folder, "VAR W INT AT %MW1")), 0);
    plant.IdentificationWord(2) = plant.IdentificationWord(5) = 100;
    plant.IdentificationWord(3) = 0xFFFFFFFF;
    plant.IdentificationWord(4) = 8;
    EXPECT_EQ(plant.table.Resolve("W").deviation, " byte 64 of the descriptor is 7");
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

// The plain model knows what lies inside; here are the ends of the areas, and what no listing or lookup asks for.
const AreaCase kAreas[] = {
    // Objects of words 10 to 100 from byte 20 of block 5 on, bits 4 to 29 from byte 8 of block 6 on.
    {{100, 10, 5, 20},
     {30, 4, 6, 8},
     {{5, 19, 255, 2, ""},
      {5, 45, 7, 1, "%MW22.15"},
      {5, 45, 255, 2, "%MW22"},
      {5, 45, 8, 2, ""},
      {5, 44, 254, 2, "%MW22.254"},
      {5, 44, 255, 1, "", kByte},
      {5, 45, 0, 1, "%MW22.8", kByte},
      {5, 200, 255, 2, "%MW100"},
      {5, 202, 255, 2, ""},
      {6, 7, 255, 1, ""},
      {6, 8, 255, 1, "%M4"},
      {6, 33, 2, 7, "%M29", kByte},
      {6, 34, 255, 1, ""},
      {5, 44, 255, 2, "", kBool, 3},
      {6, 8, 255, 1, "", kBool, 2},
      {5, 44, 255, 2, "%MW22", kBool, -1}}},
    // Both areas end by the number of words; what the word area holds is none of the bit area's.
    {{100, 0, 5, 0},
     {900, 0, 5, 10},
     {{5, 201, 255, 2, "%M191"}, {5, 200, 255, 8, ""}, {5, 210, 255, 8, "%M200"}, {5, 211, 255, 8, ""}}},
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
