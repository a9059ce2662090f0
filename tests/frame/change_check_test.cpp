// What requests do when the export file is no longer the one that was loaded.
#include "support/FakeComponent.h"
#include "support/TemporaryFolder.h"
#include "support/UnitSink.h"
#include "symbkds/frame/CSymbXml.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>

namespace {

class CCountingSymb : public CSymbXml
{
public:
    HRESULT ReOpenDatabase(void** out) override
    {
        ++reopened;
        *out = this;
        return E_FAIL;
    }

    int reopened = 0;
};

struct CLoadedSymb
{
    CLoadedSymb() { Load(); }

    void Load() { EXPECT_EQ(symb.Init(path.c_str(), &sink, FALSE, nullptr, 0), 0); }

    // One request of each kind, each of which must be answered from what was loaded.
    void Ask()
    {
        CString address, comment;
        AddressDescriptor* descriptor = nullptr;
        DWORD count = 0;
        PropertyEntry* properties = nullptr;
        EXPECT_EQ(symb.SearchAndGetFF(0, "W1", address, comment, &descriptor, &count, &properties), S_OK);
        std::free(descriptor);
        delete[] properties;
        CStringArray names;
        EXPECT_EQ(symb.BrowseSymbols("", "*", 0, "", 0, 0, 0, 1, 1, 0, nullptr, &names, nullptr), S_OK);
        EXPECT_EQ(names.GetSize(), 1);
        // The check comes before the checks of the arguments.
        EXPECT_EQ(symb.BrowseSymbolsWithProperties("", "*", 0, "", 0, 0, 0, 1, 1, 0, nullptr, nullptr, nullptr, 0, 0, 0,
                                                   0, 0, nullptr, nullptr, nullptr, nullptr, nullptr),
                  E_INVALIDARG);
        EXPECT_EQ(symb.BrowseSymbols(nullptr, "*", 0, "", 0, 0, 0, 1, 1, 0, nullptr, &names, nullptr), E_INVALIDARG);
    }

    // How often four requests reopened the database.
    int AskAndCount()
    {
        symb.reopened = 0;
        Ask();
        return symb.reopened;
    }

    CTemporaryFolder folder;
    std::string path = folder.WriteFile("plant.kds", "");
    CFakeComponent component{"VAR W1 WORD AT %MW10 size 2"};
    CUnitSink sink;
    CCountingSymb symb;
};

TEST(ChangeCheck, ReopensAtEachRequestWhileTheTimeDiffers)
{
    CLoadedSymb loaded;
    EXPECT_EQ(loaded.AskAndCount(), 0);
    ShiftFileTime(loaded.path, 10);
    EXPECT_EQ(loaded.AskAndCount(), 4);
    EXPECT_EQ(loaded.AskAndCount(), 4);
    ShiftFileTime(loaded.path, -20);
    EXPECT_EQ(loaded.AskAndCount(), 4);
    EXPECT_EQ(loaded.sink.TakeText(), "");
    loaded.Load();
    EXPECT_EQ(loaded.AskAndCount(), 0);

    ShiftFileTime(loaded.path, 10); // a selector that is refused checks nothing
    CString text;
    AddressDescriptor* descriptor = nullptr;
    DWORD count = 0;
    PropertyEntry* properties = nullptr;
    EXPECT_EQ(loaded.symb.SearchAndGetFF(2, "W1", text, text, &descriptor, &count, &properties), E_INVALIDARG);
    EXPECT_EQ(loaded.symb.reopened, 0);
}

TEST(ChangeCheck, AMissingFileIsReportedByEachRequestAndCountsAsUnchanged)
{
    CLoadedSymb loaded;
    std::filesystem::remove(loaded.path);
    EXPECT_EQ(loaded.AskAndCount(), 0);
    std::string line =
        "[1] KorvaPro Reader :IsThereNewKdvFile: Impossible to test file <" + loaded.path + "> error <2>";
    EXPECT_EQ(loaded.sink.TakeText(), line + " | " + line + " | " + line + " | " + line);
}

TEST(ChangeCheck, AFileThatAppearsAfterTheLoadCountsAsChanged)
{
    CTemporaryFolder folder;
    CFakeComponent component("");
    CCountingSymb symb;
    std::string path = folder.FilePath("late.kds");
    EXPECT_EQ(symb.Init(path.c_str(), nullptr, FALSE, "", 0), 0);
    EXPECT_FALSE(symb.IsThereNewKdvFile(FALSE));
    folder.WriteFile("late.kds", "");
    EXPECT_TRUE(symb.IsThereNewKdvFile(FALSE));
    EXPECT_TRUE(symb.IsThereNewKdvFile(TRUE));
    EXPECT_FALSE(symb.IsThereNewKdvFile(FALSE));

    // The time 0 stands for none, even when it is the file's own.
    std::filesystem::last_write_time(path, std::chrono::file_clock::from_sys(std::chrono::sys_seconds{}));
    EXPECT_TRUE(symb.IsThereNewKdvFile(TRUE));
    EXPECT_TRUE(symb.IsThereNewKdvFile(FALSE));
}

} // namespace
