// The exports and the small operations, called as a host calls them.
#include "support/ExportBuilder.h"
#include "support/HostView.h"
#include "support/RecordingSink.h"

#include <gtest/gtest.h>

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

TEST(Records, OutputsOfALookupThatFails)
{
    CTemporaryFolder folder;
    CHostTable table;
    ASSERT_EQ(table.Load(WriteExport(folder, "TYPE Motor STRUCT SPEED INT END VAR W1 WORD AT %MW10 VAR M1 Motor")), 0);
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
