#pragma once

#include "platform/win32/File.h"

#include <string>
#include <string_view>

// A text file being written: every "\n" is stored as carriage return and line feed.
//
// Writes are collected in memory and go to the file in large pieces.
class PLATFORM_API CStdioFile
{
public:
    CStdioFile() = default;
    CStdioFile(const CStdioFile&) = delete;
    CStdioFile& operator=(const CStdioFile&) = delete;
    // Closes the file; what is still collected and cannot be written is lost silently.
    ~CStdioFile();

    // Creates the file or empties an existing one, not shared with other openers. False when it cannot be had or
    // this object has a file already.
    bool Create(LPCSTR path);
    // Raises CFileException when the file takes no more, CMemoryException when memory is short.
    void Write(std::string_view text);
    // Writes what is collected and closes the file. Raises CFileException as Write does; the file is closed then too.
    void Close();

private:
    // Writes what is collected; it is given up when that fails (the error number tells why).
    bool WritePending() noexcept;

    HANDLE file = nullptr;
    std::string pending; // the first `used` bytes are collected
    std::size_t used = 0;
};
