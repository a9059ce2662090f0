// What requests do when the export file is no longer the one that was loaded.
#include "support/FakeComponent.h"
#include "support/TemporaryFolder.h"
#include "support/UnitSink.h"
#include "symbkds/frame/CSymbXml.h"

#include <gtest/gtest.h>

#include <chrono>
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
        EXPECT_EQ(table.Resolve("W1").result, S_OK);
        EXPECT_EQ(table.Browse(), "W1");
        // The check comes before the checks of the arguments.
        CHostListing listing;
        listing.passed = {};
        EXPECT_EQ(listing.Run(table), E_INVALIDARG);
        EXPECT_EQ(table.Browse({.filter = nullptr}), "E_INVALIDARG");
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
    CRecordingSink unused;
    CHostTable table{unused, AsHostSees<CSymb>(symb)};
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
    EXPECT_EQ(CHostLookup().Ask(loaded.table, "W1", 2), E_INVALIDARG);
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
