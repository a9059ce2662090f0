#include "platform/mfc/CStdioFile.h"
#include "platform/mfc/Exceptions.h"
#include "platform/win32/CodePage.h"
#include "platform/win32/File.h"
#include "platform/win32/FileStat.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>

namespace {

using WideText = std::basic_string<WCHAR>;

HANDLE OpenToRead(const std::string& path, DWORD shareMode = FILE_SHARE_READ)
{
    return CreateFileA(path.c_str(), GENERIC_READ, shareMode, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
}

HANDLE OpenToWrite(const std::string& path)
{
    return CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
}

// The error with which a call failed; 0 when it did not.
DWORD ErrorOfOpening(HANDLE file)
{
    return file == INVALID_HANDLE_VALUE ? GetLastError() : (CloseHandle(file), ERROR_SUCCESS);
}

class File : public testing::Test
{
protected:
    CTemporaryFolder folder;
    const std::string path = folder.FilePath("file.txt");
};

TEST_F(File, WritesAndReads)
{
    folder.WriteFile("file.txt", "an older and longer text");
    DWORD done = 0;
    const HANDLE written = OpenToWrite(path);
    ASSERT_NE(written, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(WriteFile(written, "hello", 5, &done, nullptr));
    EXPECT_EQ(done, 5U);
    EXPECT_TRUE(CloseHandle(written));

    const WideText widePath(path.begin(), path.end());
    const HANDLE read = CreateFileW(widePath.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(read, INVALID_HANDLE_VALUE);
    LARGE_INTEGER size{};
    EXPECT_EQ(GetFileType(read), FILE_TYPE_DISK);
    EXPECT_TRUE(GetFileSizeEx(read, &size));
    EXPECT_EQ(size.QuadPart, 5);
    char buffer[10] = {};
    EXPECT_TRUE(ReadFile(read, buffer, 4, &done, nullptr));
    EXPECT_EQ(done, 4U);
    EXPECT_TRUE(ReadFile(read, buffer + 4, 6, &done, nullptr));
    EXPECT_EQ(done, 1U);
    EXPECT_STREQ(buffer, "hello");
    EXPECT_TRUE(ReadFile(read, buffer, 10, &done, nullptr)); // the end is no error
    EXPECT_EQ(done, 0U);
    EXPECT_FALSE(WriteFile(read, "x", 1, &done, nullptr));
    EXPECT_TRUE(CloseHandle(read));
    EXPECT_FALSE(CloseHandle(read));

    EXPECT_EQ(GetFileAttributesW(widePath.c_str()) & FILE_ATTRIBUTE_DIRECTORY, 0U);
    EXPECT_TRUE(DeleteFileA(path.c_str()));
    EXPECT_FALSE(DeleteFileA(path.c_str()));
    EXPECT_EQ(GetFileAttributesW(widePath.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}

TEST_F(File, WhatCannotBeOpened)
{
    EXPECT_EQ(ErrorOfOpening(OpenToRead(path)), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(ErrorOfOpening(OpenToRead(folder.Path())), ERROR_ACCESS_DENIED);
    EXPECT_EQ(ErrorOfOpening(OpenToWrite(folder.Path())), ERROR_ACCESS_DENIED);
    EXPECT_NE(ErrorOfOpening(OpenToWrite("")), ERROR_SUCCESS);
    EXPECT_NE(ErrorOfOpening(OpenToWrite(folder.FilePath("missing") + kPathSeparator + "x")), ERROR_SUCCESS);
    EXPECT_NE(ErrorOfOpening(OpenToRead(std::string(100000, 'x'))), ERROR_SUCCESS);
    const WideText wideFolder(folder.Path().begin(), folder.Path().end());
    EXPECT_NE(GetFileAttributesW(wideFolder.c_str()) & FILE_ATTRIBUTE_DIRECTORY, 0U);
    EXPECT_FALSE(DeleteFileA(folder.Path().c_str()));
    EXPECT_TRUE(folder.Exists("."));
}

TEST_F(File, SharingIsAsAgreed)
{
    folder.WriteFile("file.txt", "precious");
    const HANDLE reader = OpenToRead(path);
    EXPECT_EQ(ErrorOfOpening(OpenToRead(path)), ERROR_SUCCESS);
    EXPECT_EQ(ErrorOfOpening(OpenToRead(path, 0)), ERROR_SHARING_VIOLATION);
    EXPECT_EQ(ErrorOfOpening(OpenToWrite(path)), ERROR_SHARING_VIOLATION);
    CloseHandle(reader);
    EXPECT_EQ(folder.ReadFile("file.txt"), "precious"); // refused before it was emptied

    const HANDLE writer = OpenToWrite(path);
    EXPECT_EQ(ErrorOfOpening(OpenToRead(path)), ERROR_SHARING_VIOLATION);
    CloseHandle(writer);
    EXPECT_EQ(ErrorOfOpening(OpenToRead(path, 0)), ERROR_SUCCESS);
}

TEST_F(File, TextFileStoresLineEnds)
{
    CStdioFile file;
    ASSERT_TRUE(file.Create(path.c_str()));
    EXPECT_FALSE(file.Create(path.c_str())); // it has a file already
    CStdioFile second;
    EXPECT_FALSE(second.Create(path.c_str())); // not shared
    file.Write("a\n\nb");
    file.Write("");
    file.Write("\n");
    file.Write(std::string_view("\r\nc\0d", 5));
    file.Close();
    file.Close();
    EXPECT_EQ(folder.ReadFile("file.txt"), std::string("a\r\n\r\nb\r\n\r\r\nc\0d", 14));
}

// Sizes around the one at which what is collected goes to the file.
TEST_F(File, TextFileOfAnySize)
{
    for (const std::size_t size : {65535U, 65536U, 65537U, 400000U}) {
        std::string expected;
        {
            CStdioFile file;
            ASSERT_TRUE(file.Create(path.c_str()));
            file.Write(std::string(size, 'x'));
            file.Write("\nline\n");
            expected = std::string(size, 'x') + "\r\nline\r\n";
            while (expected.size() < 2 * size) {
                file.Write("more lines\n");
                expected += "more lines\r\n";
            }
        } // closed by its destruction
        EXPECT_TRUE(folder.ReadFile("file.txt") == expected) << size;
    }
}

TEST_F(File, TextFileThatIsNotOpenTakesNothing)
{
    CStdioFile file;
    EXPECT_FALSE(file.Create(folder.Path().c_str()));
    file.Close();
    EXPECT_THROW(file.Write(std::string(200000, 'x')), CFileException);
}

TEST_F(File, ModificationTime)
{
    struct _stat32 status
    {};
    errno = 0;
    EXPECT_EQ(_stat32(path.c_str(), &status), -1);
    EXPECT_EQ(errno, ENOENT);
    folder.WriteFile("file.txt", "");
    ASSERT_EQ(_stat32(path.c_str(), &status), 0);
    const std::int32_t before = status.st_mtime;
    const auto now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    EXPECT_NEAR(static_cast<double>(before), static_cast<double>(now), 3600.0);
    ShiftFileTime(path, -1000);
    ASSERT_EQ(_stat32(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mtime, before - 1000);
}

} // namespace
