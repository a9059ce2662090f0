// The text file that each load leaves.
//
// tests/data/plant.dump is the dump of examples/plant.kds. After a change of the plant: load it with
//   symbhost dump examples/plant.kds FOLDER
// read what changed, and put the file in its place as it is; tick counts and file time do not matter.
#include "support/ExportBuilder.h"
#include "support/FakeComponent.h"
#include "support/HostView.h"
#include "support/PlainModel.h"
#include "support/RecordingSink.h"
#include "support/UnitSink.h"
#include "symbkds/dump/CDumpLine.h"
#include "symbkds/dump/DumpFileName.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/model/CSymbXMLDDTMember.h"
#include "symbkds/model/CSymbXMLDDTStructDef.h"

#include "platform/mfc/CStdioFile.h"
#include "platform/win32/Clock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <thread>

namespace {

std::string DumpName(std::string path)
{
    for (char separator : {':', '\\', kPathSeparator})
        std::replace(path.begin(), path.end(), separator, '_');
    return path + ".log";
}

// Folder, export, and the file; on Windows in code page 932, where 0x83 0x5C is one character.
const char* const kFileNames[][3] = {
#ifdef _WIN32
    {"D:\\Dump", "E:\\\x83\\\\l\x83\\.kds", "D:\\Dump\\E__\x83\\_l\x83\\.kds.log"},
    {"D:\\\x83\\", "a\x83", "D:\\\x83\\\\a\x83.log"},
    {"D:\\\x83\\\\", "a/b", "D:\\\x83\\\\a/b.log"},
    {"", "", "\\.log"},
#else
    {"/dump", "E:\\a/\xE3\x82\xBD.kds", "/dump/E__a_\xE3\x82\xBD.kds.log"},
    {"/\\", "\x83\\", "/\\/\x83_.log"},
    {"", "", "/.log"},
#endif
};

TEST(DumpFile, IsNamedAfterTheExport)
{
    for (const auto& [folder, source, file] : kFileNames)
        EXPECT_EQ(DumpFileName(folder, source, 932), file);
}

// The numbers that differ from load to load.
struct Stamps
{
    std::string firstTick, fileTime, lastTick;
};

// Takes the stamps out of a dump, leaving T and F.
Stamps TakeStamps(std::string& dump)
{
    Stamps stamps;
    const auto take = [&dump](std::size_t at, char sign) {
        const std::size_t end = dump.find_first_of(" \r", at);
        std::string text = dump.substr(at, end - at);
        dump.replace(at, end - at, 1, sign);
        return text;
    };
    const std::string_view first = "QUICK SAVE KDV V1.0 Unknwow ", last = "QUICK SAVE DICO V1.0 END OF FILE ";
    if (!dump.starts_with(first) || dump.rfind(last) == std::string::npos)
        return stamps;
    stamps.firstTick = take(first.size(), 'T');
    std::size_t seventhLine = 0;
    for (int i = 0; i < 6; ++i)
        seventhLine = dump.find('\n', seventhLine) + 1;
    stamps.fileTime = take(seventhLine, 'F');
    stamps.lastTick = take(dump.rfind(last) + last.size(), 'T');
    return stamps;
}

std::string WithoutStamps(std::string dump)
{
    TakeStamps(dump);
    return dump;
}

DWORD FileSeconds(const std::string& path)
{
    const auto time = std::chrono::file_clock::to_sys(std::filesystem::last_write_time(path));
    return static_cast<DWORD>(std::chrono::floor<std::chrono::seconds>(time).time_since_epoch().count());
}

std::string Hexadecimal(DWORD number)
{
    std::ostringstream text;
    text << std::uppercase << std::hex << number;
    return text.str();
}

// One load with a dump folder of its own.
struct CDumped
{
    LONG Load(std::string_view exportText) { return LoadFile(WriteExport(folder, exportText)); }
    LONG LoadFile(const std::string& path, const std::string& separator = "")
    {
        source = path;
        return table.Load(path, FALSE, dumps.Path() + separator);
    }
    std::string Dump() const { return dumps.ReadFile(DumpName(source)); }

    CTemporaryFolder folder;
    CTemporaryFolder dumps;
    CRecordingSink sink;
    CHostTable table{sink};
    std::string source;
};

TEST(DumpFile, OfTheExamplePlant)
{
    CDumped loaded;
    const std::string path = loaded.folder.WriteFile("plant.kds", ReadWholeFile(EXAMPLES_DIR "/plant.kds"));
    const DWORD before = GetTickCount();
    ASSERT_EQ(loaded.LoadFile(path), 0);
    const DWORD after = GetTickCount();
    std::string dump = loaded.Dump();
    const Stamps stamps = TakeStamps(dump);
    EXPECT_EQ(dump, WithoutStamps(ReadWholeFile(TEST_DATA_DIR "/plant.dump")));

    EXPECT_EQ(stamps.fileTime, Hexadecimal(FileSeconds(path)));
    EXPECT_EQ(stamps.firstTick.find_first_not_of("0123456789abcdef"), std::string::npos) << stamps.firstTick;
    EXPECT_EQ(stamps.lastTick.find_first_not_of("0123456789ABCDEF"), std::string::npos) << stamps.lastTick;
    const DWORD first = static_cast<DWORD>(std::stoul(stamps.firstTick, nullptr, 16));
    const DWORD last = static_cast<DWORD>(std::stoul(stamps.lastTick, nullptr, 16));
    EXPECT_LE(first - before, last - before);
    EXPECT_LE(last - before, after - before);
}

std::string PlaceOf(const Item& item)
{
    return " (" + Hexadecimal(item.block) + "," + Hexadecimal(item.offset) + ")-" + Hexadecimal(item.size) + " : ";
}

// Of a structure or function block.
std::string BlockOf(const Type& type)
{
    const std::string kind = type.kind == Type::kBlock ? "DFBDef " : "DDTStruct ";
    std::string members;
    DWORD count = 0;
    for (const Item& member : type.members) {
        if (member.removed)
            continue;
        ++count;
        members += "DDT/DFB-Member " + member.name + " \r\n " + member.comment + " \r\n " +
                   (member.upper ? Upper(member.spelled) : member.spelled) + " \r\n " +
                   Hexadecimal(member.known ? CPlainModel::VarTypeOf(*member.type, true) : 0) + " " +
                   Hexadecimal(CPlainModel::CodeOf(*member.type, member.known)) + PlaceOf(member) +
                   Hexadecimal(member.access) + " 0 " + (member.hidden ? "1" : "0") + " \r\n";
    }
    return kind + "\r\n" + kind + type.name + " \r\n0 \r\nNbMember " + Hexadecimal(count) + " \r\n" + members;
}

// One behind the other; %TEMP_ARRAY stands for each generated name.
std::string BlocksOf(const std::vector<Item>& variables)
{
    std::string blocks = "NbItem " + Hexadecimal(static_cast<DWORD>(variables.size())) + " \r\n";
    for (const Item& variable : variables)
        blocks += "XMLItem " + variable.name + "\r\n" + variable.comment + "\r\n" + variable.address + "\r\n" +
                  (variable.type->anonymous ? "%TEMP_ARRAY" : variable.type->name) + "\r\n" +
                  Hexadecimal(CPlainModel::CodeOf(*variable.type, true)) + " " +
                  Hexadecimal(CPlainModel::VarTypeOf(*variable.type, false)) + PlaceOf(variable) +
                  Hexadecimal(static_cast<DWORD>(variable.bit)) + " " + Hexadecimal(variable.access) + "\r\n";
    return blocks + "QUICK SAVE DICO";
}

std::string WithoutNumbers(std::string dump)
{
    const std::string_view generated = "%TEMP_ARRAY";
    for (std::size_t at = 0; (at = dump.find(generated, at)) != std::string::npos;) {
        at += generated.size();
        dump.erase(at, dump.find_first_not_of("0123456789", at) - at);
    }
    return dump;
}

// Of arrays tests of the type names tell.
TEST(DumpFile, HoldsEveryTypeAndVariableOfGeneratedProjects)
{
    const CComScope com; // the component stays loaded
    for (unsigned seed = 1; seed <= 300 && !HasFailure(); ++seed) {
        const CGeneratedProject project(seed);
        CDumped loaded;
        ASSERT_EQ(loaded.Load(project.text), 0);
        const std::string dump = WithoutNumbers(loaded.Dump());
        for (const Type* type : project.named)
            if (type->kind != Type::kArray) {
                EXPECT_THAT(dump, testing::HasSubstr(BlockOf(*type))) << project.text;
            }
        EXPECT_THAT(dump, testing::HasSubstr(BlocksOf(project.variables))) << project.text;
    }
}

TEST(DumpFile, TakesThePlaceOfAnOlderOne)
{
    CDumped loaded;
    ASSERT_EQ(loaded.Load("VAR A INT AT %MW1 size 2 VAR B INT AT %MW2 size 2 'a comment that makes the file longer'"),
              0);
    const std::string longer = loaded.Dump();
    CHostTable second;
    second.Load(WriteExport(loaded.folder, "VAR A INT AT %MW1 size 2"), FALSE, loaded.dumps.Path());
    EXPECT_LT(loaded.Dump().size(), longer.size());
    EXPECT_THAT(loaded.Dump(), testing::HasSubstr("\r\nNbItem 1 \r\nXMLItem A\r\n"));
    ASSERT_EQ(loaded.Load("VAR C INT AT %MW1 size 2"), 0); // the same object: what it holds now
    EXPECT_THAT(loaded.Dump(), testing::HasSubstr("\r\nNbItem 3 \r\nXMLItem A\r\n"));
}

TEST(DumpFile, ThatCannotBeCreatedIsNotMissed)
{
    const char plant[] = "VAR A INT AT %MW1 size 2";
    CDumped loaded;
    const std::string path = WriteExport(loaded.folder, plant), name = DumpName(path);
    const auto load = [&](LPCSTR directory) {
        const CComScope com;
        EXPECT_EQ(loaded.table->Init(path.c_str(), &loaded.sink, TRUE, directory, 0), 0);
        EXPECT_EQ(loaded.table.TakeMessages(), "");
        EXPECT_EQ(loaded.table.Browse(), "A"); // loaded all the same
    };
    load(nullptr);
    load("");
    EXPECT_FALSE(std::filesystem::exists(name));
    EXPECT_FALSE(std::filesystem::exists(kPathSeparator + name));
    load(loaded.dumps.FilePath("missing").c_str());
    EXPECT_EQ(loaded.dumps.List(), "");
    load(loaded.dumps.WriteFile("file", "no folder").c_str());
    EXPECT_EQ(loaded.dumps.ReadFile("file"), "no folder");

    CStdioFile holder; // another process reads or writes it
    ASSERT_TRUE(holder.Create(loaded.dumps.FilePath(name).c_str()));
    load(loaded.dumps.Path().c_str());
    holder.Close();
    EXPECT_EQ(loaded.dumps.ReadFile(name), "");
    std::filesystem::remove(loaded.dumps.FilePath(name));
    std::filesystem::create_directory(loaded.dumps.FilePath(name));
    load(loaded.dumps.Path().c_str());
    EXPECT_TRUE(std::filesystem::is_directory(loaded.dumps.FilePath(name)));
}

TEST(DumpFile, OnAFullDiskIsReported)
{
    const std::string full = "/dev/full";
    if (!std::filesystem::exists(full))
        GTEST_SKIP() << "no device that is always full";
    for (int variables : {1, 4000}) { // the disk is full when the file is closed, or earlier
        std::string plant;
        for (int i = 0; i < variables; ++i)
            plant += "VAR V" + std::to_string(i) + " INT AT %MW1 size 2\n";
        CDumped loaded;
        const std::string path = WriteExport(loaded.folder, plant);
        std::filesystem::create_symlink(full, loaded.dumps.FilePath(DumpName(path)));
        EXPECT_EQ(loaded.LoadFile(path), 0);
        EXPECT_EQ(loaded.table.TakeMessages(), "KorvaPro Reader <plant.kds>:catched exception on Init");
        EXPECT_EQ(loaded.table.BrowseNames().size(), static_cast<std::size_t>(variables));
        EXPECT_EQ(loaded.dumps.List(), DumpName(path)); // what was written stays
    }
}

// A definition with a reserved number and a member passed by reference, and what it does when it is dumped.
class CWatchedDef : public CSymbXMLDDTStructDef
{
public:
    explicit CWatchedDef(std::function<bool()> whenDumped) : work(std::move(whenDumped))
    {
        reservedNumber = 0xABC;
        members.Add(std::make_unique<CSymbXMLDDTMember>());
        members.GetAt(0)->indirectionKind = 2;
    }

    bool Dump(CDumpLine& line) const override { return CSymbXMLDDTStructDef::Dump(line) && work(); }

private:
    std::function<bool()> work;
};

const char kWatched[] = "ListType 2\r\nDDTStruct \r\nDDTStruct  \r\nABC \r\nNbMember 1 \r\nDDT/DFB-Member  \r\n  \r\n"
                        "  \r\n 0 2 (0,0)-0 : 0 2 0 \r\n";

TEST(IncompleteDump, IsDeletedUnlessAnExceptionEndedIt)
{
    for (bool throws : {false, true}) {
        CFakeComponent component("TYPE Point STRUCT X INT END VAR A INT AT %MW1 size 2");
        CTemporaryFolder folder, dumps;
        CUnitSink sink;
        CSymbXml symb;
        symb.GetTypes().AddTypeDef("Odd", std::make_unique<CWatchedDef>([throws] {
                                       return throws ? throw std::runtime_error("not to be written") : false;
                                   }));
        const std::string path = folder.WriteFile("plant.kds", "");
        EXPECT_EQ(symb.Init(path.c_str(), &sink, TRUE, dumps.Path().c_str(), 0), 0);
        EXPECT_EQ(sink.TakeText(), throws ? "KorvaPro Reader <" + path +
                                                ">:catched exception on Init with error message: not to be written"
                                          : "");
        EXPECT_EQ(symb.GetVariables().GetCount(), 1);
        EXPECT_EQ(dumps.List().empty(), !throws);
        if (throws) {
            EXPECT_TRUE(dumps.ReadFile(dumps.List()).ends_with(kWatched)); // as much as was written
        }
    }
}

TEST(DumpFile, IsWrittenAloneAndAfterTheComponentIsGone)
{
    CFakeComponent component("VAR A INT");
    std::atomic<int> inside = 0;
    const auto load = [&] {
        const CComScope com;
        CTemporaryFolder dumps;
        CSymbXml symb;
        symb.GetTypes().AddTypeDef("Odd", std::make_unique<CWatchedDef>([&] {
                                       EXPECT_EQ(++inside, 1);
                                       EXPECT_EQ(component.LivingObjects(), 0);
                                       Sleep(20);
                                       --inside;
                                       return true;
                                   }));
        EXPECT_EQ(symb.Init("plant.kds", nullptr, TRUE, dumps.Path().c_str(), 0), 0);
        std::string dump = dumps.ReadFile("plant.kds.log");
        EXPECT_EQ(TakeStamps(dump).fileTime, "0"); // there is no such file
    };
    std::thread other(load);
    load();
    other.join();
}

} // namespace
