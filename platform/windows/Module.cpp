#include "platform/windows/Module.h"

std::wstring ModulePath(const void* address)
{
    HMODULE module = nullptr;
    if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            static_cast<LPCWSTR>(address), &module))
        return {};
    constexpr DWORD kLongestPath = 32768;
    std::wstring path(kLongestPath, L'\0');
    const DWORD length = GetModuleFileNameW(module, path.data(), kLongestPath);
    path.resize(length < kLongestPath ? length : 0);
    return path;
}
