// Exports that change, or fail, while they are read: the system's read passes through this program.
#include "korvaproservices/ComponentFixture.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using namespace std::string_literals;

// Told the number of the call, from 1, before each read: how many bytes it may give, or an error below zero.
std::function<long(int)> beforeRead;
int reads = 0;
bool isInherited = false; // by a program that is started during the load

} // namespace

extern "C" __attribute__((visibility("default"))) ssize_t read(int file, void* buffer, std::size_t bytes)
{
    isInherited |= beforeRead && !(fcntl(file, F_GETFD) & FD_CLOEXEC);
    const long allowed = beforeRead ? beforeRead(++reads) : static_cast<long>(bytes);
    if (allowed >= 0)
        return syscall(SYS_read, file, buffer, std::min(bytes, static_cast<std::size_t>(allowed)));
    errno = static_cast<int>(-allowed);
    return -1;
}

namespace {

constexpr long kWhole = 1 << 20;

class Reading : public CComponentTest
{
protected:
    HRESULT LoadWhile(std::string_view bytes, std::function<long(int)> hook)
    {
        path = folder.WriteFile("export.kds", bytes);
        reads = 0;
        beforeRead = std::move(hook);
        const HRESULT result = ImportFrom(path);
        beforeRead = nullptr;
        EXPECT_GT(reads, 0);
        EXPECT_FALSE(isInherited);
        return result;
    }

    // The file becomes `left` bytes long before its `call`-th read; the others give `piece` bytes at most.
    HRESULT LoadCut(std::string_view bytes, std::size_t left, int call, long piece)
    {
        return LoadWhile(bytes, [=, this](int number) {
            if (number == call)
                std::filesystem::resize_file(path, left);
            return piece;
        });
    }

    std::string path;
};

const std::string kExport = "<r a='1'><x id='1'/><x id='2'/></r>";

// Its size is known by then, from before.
TEST_F(Reading, AFileThatShrinksIsWhatIsLeftOfIt)
{
    const std::string utf16 = "\xFF\xFE<\0r\0/\0>\0 \0 \0"s;
    for (std::size_t left = 0; left < kExport.size(); ++left)
        EXPECT_EQ(LoadCut(kExport + "    ", left, 1, kWhole), kInvalidData) << left;
    for (const std::size_t left : {0U, 1U, 2U, 3U, 9U, 11U, 13U})
        EXPECT_EQ(LoadCut(utf16, left, 1, kWhole), kInvalidData) << left;
    EXPECT_EQ(LoadCut(kExport, 5, 3, 10), kInvalidData); // nothing is left behind what was read already
    ASSERT_EQ(LoadCut(kExport + "    ", kExport.size(), 1, kWhole), S_OK); // the blanks alone are gone
    EXPECT_EQ(RestOf(ChildrenOf(Find("r"))), "x=1 x=2");
    ASSERT_EQ(LoadCut(utf16, 10, 1, kWhole), S_OK);
    EXPECT_EQ(TagOf(Find("r")), "r");
}

TEST_F(Reading, WhatIsNoFileIsNotReadAndNothingStaysOpen)
{
    const std::string pipe = folder.FilePath("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    folder.FilePath("socket").copy(address.sun_path, sizeof address.sun_path - 1);
    const int bound = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(bound, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_EQ(grantpt(terminal) | unlockpt(terminal), 0);
    const int free = dup(bound);
    close(free);
    for (const std::string& entry : {pipe, std::string(address.sun_path), std::string(ptsname(terminal)), "/dev/null"s,
                                     folder.WriteFile("broken.kds", "<r>"), folder.Path()})
        EXPECT_EQ(ImportFrom(entry), kInvalidData) << entry;
    EXPECT_EQ(Load(kExport), S_OK);
    const int stillFree = dup(bound);
    EXPECT_EQ(stillFree, free); // nothing stays open, whatever came of it
    close(stillFree);
    close(terminal);
    close(bound);
}

TEST_F(Reading, PiecesInterruptionsAndWhatIsAddedDoNotShow)
{
    const auto hook = [this](int number) {
        folder.WriteFile("export.kds", kExport + "<broken");
        return number % 2 ? -EINTR : 1;
    };
    ASSERT_EQ(LoadWhile(kExport, hook), S_OK);
    EXPECT_EQ(RestOf(ChildrenOf(Find("r"))), "x=1 x=2");
}

TEST_F(Reading, AnErrorIsReportedWhereverItComes)
{
    constexpr struct
    {
        int error;
        DWORD result;
    } kErrors[] = {{EIO, 0x8007001F}, {EACCES, 0x80070005}, {ENOMEM, 0x8007000E}, {EISDIR, 0x80070005}};
    for (const auto& row : kErrors) {
        for (const int call : {1, 2, 4}) {
            EXPECT_EQ(LoadWhile(kExport, [&](int number) { return number == call ? -row.error : 10; }),
                      static_cast<HRESULT>(row.result));
            ElementPtr none;
            EXPECT_EQ(walk->FindElement(Wide("r").Get(), none.Put()), E_UNEXPECTED); // no half of a document
        }
    }
}

} // namespace
