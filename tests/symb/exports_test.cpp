// The exports and the small operations, called as a host calls them.
#include "support/ExportBuilder.h"
#include "support/HostView.h"
#include "support/RecordingSink.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr HRESULT kNotImplemented = static_cast<HRESULT>(0x80004001U);
constexpr HRESULT kInvalidArgument = static_cast<HRESULT>(0x80070057U);

TEST(Exports, RefuseNullAndNameTheirKind)
{
    const HostLibrary& library = LoadHostLibrary();
    EXPECT_EQ(library.newSymb(nullptr), kInvalidArgument);
    EXPECT_EQ(library.deleteSymb(nullptr), kInvalidArgument);
    EXPECT_EQ(library.getSymbType(nullptr), kInvalidArgument);
    DWORD typeCode = 0;
    EXPECT_EQ(library.getSymbType(&typeCode), 0);
    EXPECT_EQ(typeCode, 9U);
    CHostSymb* symb = nullptr;
    EXPECT_EQ(library.newSymb(&symb), 0);
    ASSERT_NE(symb, nullptr);
    EXPECT_EQ(library.deleteSymb(symb), 0); // never saw Init
}

TEST(Exports, ObjectsKnowNothingOfEachOther)
{
    CTemporaryFolder folder;
    auto first = std::make_unique<CHostTable>();
    CHostTable second;
    EXPECT_EQ(first->Load(WriteExport(folder, "VAR A INT AT %MW1 size 2", "first.kds")), 0);
    EXPECT_EQ(second.Load(WriteExport(folder, "VAR B INT AT %MW2 size 2", "second.kds")), 0);
    EXPECT_EQ(first->Lookup("B"), "refused, silent");
    first.reset();
    EXPECT_EQ(second.Lookup("B"), "INT +0 size 2 at %MW2");
}

void CheckConstantOperations(const CHostTable& table)
{
    EXPECT_EQ(table->GetSymbolTableType(), 9U);
    EXPECT_EQ(table->GetDescription(), "KorvaPro exported located symbol table");
    EXPECT_TRUE(table->GetInfoTextA().IsEmpty() && table->GetInfoTextB().IsEmpty());
    int untouched = 0;
    void* out = &untouched;
    for (const HRESULT result :
         {table->ReservedA(1, 2, 3), table->ReservedB(1, 2, 3, 4, 5), table->ReservedC(), table->ReservedD(1),
          table->ReservedE(1), table->ReservedF(1), table->ReloadAndUpdateSymbols(1, 2), table->ReOpenDatabase(&out)})
        EXPECT_EQ(result, kNotImplemented);
    EXPECT_EQ(out, &untouched);
    EXPECT_EQ(table->ValidateConsistency(1, 2, 3, 4), 0);
    DWORD count = 77;
    EXPECT_EQ(table->GetCountValue(&count), 0);
    EXPECT_EQ(count, 0U);
    EXPECT_EQ(table->GetCountValue(nullptr), kInvalidArgument);
    EXPECT_EQ(table->GetGeneration(), 0);
    EXPECT_EQ(table->GetConsistencyState(), 5);
}

TEST(SmallOperations, AnswerTheSameBeforeAndAfterALoad)
{
    CTemporaryFolder folder;
    CHostTable table;
    CheckConstantOperations(table);
    EXPECT_EQ(table->GetSourceName(), "");
    EXPECT_EQ(table->GetHeaderName(), "");
    EXPECT_EQ(table.Lookup("A"), "refused, silent");
    EXPECT_EQ(table.Browse(), "");
    EXPECT_EQ(table.BrowsePage({}, 0).Text(), "");

    std::string path = WriteExport(folder, "VAR A INT AT %MW1 size 2", "Plant.KDS");
    EXPECT_EQ(table.Load(path), 0);
    CheckConstantOperations(table);
    EXPECT_EQ(table->GetSourceName(), path.c_str());
    EXPECT_EQ(table->GetHeaderName(), "Unknwow");
    EXPECT_EQ(table.Lookup("A"), "INT +0 size 2 at %MW1");
}

TEST(SmallOperations, AFailedLoadRecordsItsArguments)
{
    CTemporaryFolder folder;
    CRecordingSink sink;
    CHostTable table(sink);
    std::string path = folder.FilePath("plant.kds");
    EXPECT_EQ(table.Load(path, FALSE), -1);
    EXPECT_EQ(table.TakeMessages(),
              "KorvaPro Reader <plant.kds> :Init: Impossible to load the exported file .kds 0x80070002");
    EXPECT_EQ(table->GetSourceName(), path.c_str());
    EXPECT_EQ(table->GetHeaderName(), "");
    EXPECT_EQ(table->Init(nullptr, nullptr, FALSE, nullptr, 0), -1);
    EXPECT_EQ(table->GetSourceName(), "");
}

// One of each shape of the records that a host reads by offset.
const char kPlant[] = "TYPE Motor STRUCT SPEED INT @4 size 2 'rpm' ROW ARRAY[0..3] OF REAL @8 size 16 END\n"
                      "VAR W1 WORD AT %MW10 block 5 @20 size 2 access 1 customer \"line 1\" 'first word'\n"
                      "VAR FLAG BOOL AT %MW3.11 block 5 @21 size 1 bit 3\n"
                      "VAR M1 Motor block 300 @200 size 24 access 3 customer \"\xC3\xA9\"\n"
                      "VAR FAR INT AT %MW0 block 65535 @4294967295 size 2\n";

const std::pair<const char*, const char*> kLookups[] = {
    {"W1", "WORD +20 size 2 block 5 access 1 at %MW10 'first word' customer \"line 1\""},
    {"w1.15", "WORD as BOOL +20 size 2 block 5 bit 15 access 1 at %MW10.15 'first word' customer \"line 1\""},
    {"FLAG", "BOOL +20 size 2 block 5 bit 11 at %MW3.11"},
    {"M1.SPEED", "INT +204 size 2 block 300 access 2 'rpm' customer \"\xC3\xA9\""},
    {"M1.ROW", "ARRAY[0..3] OF REAL as REAL[] +208 size 16 block 300 access 2 customer \"\xC3\xA9\""},
    {"FAR", "INT +2147483647 size 2 block 65535 at %MW0"}, // numbers of the export have 32 bits with a sign
    {"W1.16", "refused, silent"},
    {"M1.NONE", "E_INVALIDARG, silent"},
    {"None", "refused: KorvaPro Reader <plant.kds> :SearchAndGetFF: invalid type for None"},
    {"%s%n%d", "refused: KorvaPro Reader <plant.kds> :SearchAndGetFF: invalid type for %s%n%d"},
};

TEST(Records, ReadAsTheHostsDocumentsSay)
{
    CTemporaryFolder folder;
    CRecordingSink sink;
    CHostTable table(sink);
    ASSERT_EQ(table.Load(WriteExport(folder, kPlant)), 0);
    EXPECT_EQ(table.TakeMessages(), "");
    for (const auto& [name, answer] : kLookups)
        EXPECT_EQ(table.Lookup(name), answer) << name;
    EXPECT_EQ(table.BrowsePage({.parentId = u"PLC"}, 3).Text(), "W1=PLC!W1, FLAG=PLC!FLAG, M1=PLC!M1 > ...");
    EXPECT_EQ(table.BrowsePages({.path = "M1", .parentId = u"PLC!M1"}, 1).Text(),
              "SPEED=PLC!M1.SPEED, ROW=PLC!M1.ROW >");
    EXPECT_EQ(table.Browse({.fields = "AC"}), "W1|%MW10|first word, FLAG|%MW3.11|, FAR|%MW0|");
}

TEST(Records, OutputsOfALookupThatFails)
{
    CTemporaryFolder folder;
    CHostTable table;
    ASSERT_EQ(table.Load(WriteExport(folder, kPlant)), 0);
    CString address("kept"), comment("too");
    int marker = 0;
    void *descriptor = &marker, *properties = &marker;
    DWORD count = 5;
    EXPECT_EQ(table->SearchAndGetFF(2, "W1", address, comment, &descriptor, &count, &properties), kInvalidArgument);
    EXPECT_TRUE(descriptor == &marker && properties == &marker && count == 5);
    EXPECT_EQ(table->SearchAndGetFF(1, nullptr, address, comment, &descriptor, &count, &properties), -1);
    EXPECT_TRUE(!descriptor && !properties && count == 0);
    EXPECT_EQ(table->SearchAndGetFF(1, "M1.NONE", address, comment, &descriptor, &count, &properties),
              kInvalidArgument);
    EXPECT_EQ(table->SearchAndGetFF(0, "W1", address, comment, nullptr, &count, &properties), kInvalidArgument);
    EXPECT_EQ(table->SearchAndGetFF(0, "W1", address, comment, &descriptor, nullptr, &properties), kInvalidArgument);
    EXPECT_EQ(table->SearchAndGetFF(0, "W1", address, comment, &descriptor, &count, nullptr), kInvalidArgument);
    EXPECT_TRUE(address == "kept" && comment == "too");
}

} // namespace
