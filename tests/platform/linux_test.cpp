// Facts about this system alone: special files, paths in UTF-8, file times, terminals.
#include "platform/win32/Console.h"
#include "platform/win32/File.h"
#include "platform/win32/FileStat.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

HANDLE Open(LPCSTR path, DWORD access, DWORD disposition)
{
    return CreateFileA(path, access, 0, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

TEST(LinuxFile, PipesAreReadButNotWritten)
{
    const CTemporaryFolder folder;
    const std::string pipe = folder.FilePath("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(Open(pipe.c_str(), GENERIC_WRITE, CREATE_ALWAYS), INVALID_HANDLE_VALUE); // nobody reads
    const HANDLE reader = Open(pipe.c_str(), GENERIC_READ, OPEN_EXISTING);
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    EXPECT_EQ(Open(pipe.c_str(), GENERIC_WRITE, CREATE_ALWAYS), INVALID_HANDLE_VALUE); // a reader may go away
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    CloseHandle(reader);
}

TEST(LinuxFile, ErrorsAndPathsInUtf8)
{
    const CTemporaryFolder folder;
    const std::string file = folder.WriteFile("F\xC3\xB6\xF0\x9F\x98\x80", "x");
    const std::u16string wide = std::u16string(folder.Path().begin(), folder.Path().end()) + u"/F\u00F6\U0001F600";
    EXPECT_EQ(GetFileAttributesW(wide.c_str()), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(Open((file + "/below").c_str(), GENERIC_READ, OPEN_EXISTING), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    const std::u16string tooLong(10000, u'x');
    EXPECT_EQ(GetFileAttributesW(tooLong.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_NAME);
}

TEST(LinuxFile, TimesBeyond32BitsAreMinusOne)
{
    const CTemporaryFolder folder;
    const std::string file = folder.WriteFile("file", "");
    const std::pair<std::int64_t, std::int32_t> cases[] = {
        {0, 0}, {INT32_MAX, INT32_MAX}, {std::int64_t{INT32_MAX} + 1, -1}, {4294967296 + 5, -1}, {-5, -5}};
    for (const auto& [seconds, expected] : cases) {
        const timespec times[2] = {{seconds, 0}, {seconds, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, file.c_str(), times, 0), 0);
        struct _stat32 status
        {};
        EXPECT_EQ(_stat32(file.c_str(), &status), 0);
        EXPECT_EQ(status.st_mtime, expected) << seconds;
    }
}

TEST(LinuxConsole, IsAsWideAsTheTerminalTells)
{
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    const auto console = reinterpret_cast<HANDLE>(std::intptr_t{terminal} + 1);
    CONSOLE_SCREEN_BUFFER_INFO info{};
    constexpr unsigned short kColumns[] = {0, 1, 80, 65535};
    for (const unsigned short columns : kColumns) {
        const winsize size{24, columns, 0, 0};
        ASSERT_EQ(ioctl(terminal, TIOCSWINSZ, &size), 0);
        EXPECT_EQ(GetConsoleScreenBufferInfo(console, &info), columns != 0); // some tell none
        EXPECT_EQ(info.srWindow.Right, columns == 65535 ? 32766 : std::max(columns - 1, 0)) << columns;
    }
    close(terminal);
    EXPECT_FALSE(GetConsoleScreenBufferInfo(console, &info));
}

} // namespace
