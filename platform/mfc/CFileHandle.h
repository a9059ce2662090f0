#pragma once

#include "platform/win32/File.h"

// Owns what CreateFile returned.
class CFileHandle
{
public:
    explicit CFileHandle(HANDLE opened) noexcept : handle(opened) {}
    CFileHandle(const CFileHandle&) = delete;
    CFileHandle& operator=(const CFileHandle&) = delete;
    ~CFileHandle()
    {
        if (IsOpen())
            CloseHandle(handle);
    }

    bool IsOpen() const noexcept { return handle != INVALID_HANDLE_VALUE; }
    HANDLE Get() const noexcept { return handle; }

private:
    HANDLE handle;
};
