#include "platform/mfc/CStdioFile.h"
#include "platform/mfc/Exceptions.h"
#include "platform/win32/CodePage.h"
#include "platform/win32/File.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

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
    folder.WriteFile("file.txt", "an older and much, much longer text");
    CStdioFile file, opened, second;
    EXPECT_FALSE(file.Create(folder.Path().c_str()));
    EXPECT_THROW(file.Write(std::string(200000, 'x')), CFileException); // it has no file
    file.Close();
    ASSERT_TRUE(opened.Create(path.c_str()));
    EXPECT_FALSE(opened.Create(path.c_str())); // it has a file already
    EXPECT_FALSE(second.Create(path.c_str())); // not shared
    opened.Write("a\n\nb");
    opened.Write("");
    opened.Write(std::string_view("\n\r\nc\0d", 6));
    opened.Close();
    opened.Close();
    EXPECT_EQ(folder.ReadFile("file.txt"), std::string("a\r\n\r\nb\r\n\r\r\nc\0d", 14));
}

// Sizes around the one at which what is collected goes to the file.
TEST_F(File, TextFileOfAnySize)
{
    for (const std::size_t size : {65535U, 65536U, 65537U, 400000U}) {
        std::string expected = std::string(size, 'x') + "\r\nline\r\n";
        {
            CStdioFile file;
            ASSERT_TRUE(file.Create(path.c_str()));
            file.Write(std::string(size, 'x'));
            file.Write("\nline\n");
            for (; expected.size() < 2 * size; expected += "more lines\r\n")
                file.Write("more lines\n");
        } // closed by its destruction
        EXPECT_TRUE(folder.ReadFile("file.txt") == expected) << size;
    }
}

} // namespace
