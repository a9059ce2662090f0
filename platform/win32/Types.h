// Scalar types, results and error numbers under their Windows names.
//
// Widths are those of Windows on every system: LONG, DWORD, BOOL, HRESULT and
// ULONG have 32 bits, WCHAR is one 16-bit UTF-16 unit.
#pragma once

#include <cstddef>
#include <cstdint>

// What every COM operation and every export of this project returns and how it
// is called: `STDAPI_EXPORT NewSymb(...)` defines an exported function. On
// Windows a library's .def file exports it, under the name that callers expect.
#ifdef _WIN32
#define STDAPI_EXPORT extern "C" HRESULT __stdcall
#define PLATFORM_API
// The name under which a __stdcall function with `bytes` bytes of arguments stands in the export table.
#define STDCALL_EXPORT_NAME(name, bytes) "_" name "@" #bytes
#else
#define STDAPI_EXPORT extern "C" __attribute__((visibility("default"))) HRESULT
#define PLATFORM_API __attribute__((visibility("default")))
#define STDCALL_EXPORT_NAME(name, bytes) name
#endif

#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <wtypes.h> // OLECHAR and OLESTR

#else

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = std::uint32_t;
using ULONG = std::uint32_t;
using LONG = std::int32_t;
using LONGLONG = std::int64_t;
using BOOL = std::int32_t;
using HRESULT = std::int32_t;
using WCHAR = char16_t;
using OLECHAR = WCHAR;
using LPSTR = char*;
using LPCSTR = const char*;
using LPWSTR = WCHAR*;
using LPCWSTR = const WCHAR*;
using HANDLE = void*;

constexpr BOOL TRUE = 1;
constexpr BOOL FALSE = 0;

constexpr HRESULT S_OK = 0;
constexpr HRESULT S_FALSE = 1;
constexpr HRESULT E_UNEXPECTED = static_cast<HRESULT>(0x8000FFFFU);
constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001U);
constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002U);
constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003U);
constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005U);
constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000EU);
constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057U);

constexpr DWORD ERROR_SUCCESS = 0;
constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
constexpr DWORD ERROR_PATH_NOT_FOUND = 3;
constexpr DWORD ERROR_ACCESS_DENIED = 5;
constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
constexpr DWORD ERROR_INVALID_DATA = 13;
constexpr DWORD ERROR_OUTOFMEMORY = 14;
constexpr DWORD ERROR_GEN_FAILURE = 31;
constexpr DWORD ERROR_SHARING_VIOLATION = 32;
constexpr DWORD ERROR_INVALID_PARAMETER = 87;
constexpr DWORD ERROR_DISK_FULL = 112;
constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
constexpr DWORD ERROR_INVALID_NAME = 123;
constexpr DWORD ERROR_MOD_NOT_FOUND = 126;
constexpr DWORD ERROR_PROC_NOT_FOUND = 127;

constexpr bool SUCCEEDED(HRESULT result)
{
    return result >= 0;
}

constexpr bool FAILED(HRESULT result)
{
    return result < 0;
}

constexpr HRESULT HRESULT_FROM_WIN32(DWORD error)
{
    return error == 0 ? S_OK : static_cast<HRESULT>((error & 0xFFFFU) | 0x80070000U);
}

// The error number left by the last failing call of this layer on this thread.
PLATFORM_API DWORD GetLastError();
PLATFORM_API void SetLastError(DWORD error);

// Calling conventions mean something on 32-bit Windows only.
#define STDMETHODCALLTYPE
#define WINAPI

// A UTF-16 literal.
#define OLESTR(text) u##text

#endif
