// The exceptions of the class library. None of them is a std::exception: a
// guard tells "memory, file or component failed" from a standard exception
// with a description.
#pragma once

#include "platform/win32/Types.h"

class PLATFORM_API CException
{
public:
    virtual ~CException();
};

// An allocation failed.
class PLATFORM_API CMemoryException : public CException
{
public:
    ~CMemoryException() override;
};

// A COM or automation call failed, a BSTR allocation among them.
class PLATFORM_API COleException : public CException
{
public:
    explicit COleException(HRESULT failure) : result(failure) {}
    ~COleException() override;

    const HRESULT result;
};

// Writing a file failed.
class PLATFORM_API CFileException : public CException
{
public:
    explicit CFileException(DWORD systemError) : error(systemError) {}
    ~CFileException() override;

    const DWORD error; // the system's error number
};

[[noreturn]] PLATFORM_API void AfxThrowMemoryException();
[[noreturn]] PLATFORM_API void AfxThrowOleException(HRESULT result);
[[noreturn]] PLATFORM_API void AfxThrowFileException(DWORD error);
