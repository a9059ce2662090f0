#include "platform/windows/InprocServerKey.h"

#include "platform/windows/Module.h"

namespace {

// Any address inside this module serves to find the module.
const char kInsideThisModule = 0;

// HRESULT of what the registry's calls return.
HRESULT ResultOf(LSTATUS status)
{
    return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
}

std::wstring KeyOf(REFCLSID clsid)
{
    wchar_t text[39]; // {…} and the terminator
    StringFromGUID2(clsid, text, 39);
    return std::wstring(L"CLSID\\") + text;
}

// `name` null is the key's default value.
HRESULT SetText(const std::wstring& key, LPCWSTR name, const std::wstring& text)
{
    const DWORD bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    return ResultOf(RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), name, REG_SZ, text.c_str(), bytes));
}

} // namespace

std::wstring InprocServerKey(REFCLSID clsid)
{
    return KeyOf(clsid) + L"\\InprocServer32";
}

HRESULT RegisterInprocServer(REFCLSID clsid, LPCWSTR description)
{
    const std::wstring path = ModulePath(&kInsideThisModule);
    if (path.empty())
        return E_UNEXPECTED;
    const std::wstring key = KeyOf(clsid);
    const std::wstring server = InprocServerKey(clsid);
    HRESULT result = SetText(key, nullptr, description);
    if (SUCCEEDED(result))
        result = SetText(server, nullptr, path);
    if (SUCCEEDED(result))
        result = SetText(server, L"ThreadingModel", L"Both");
    if (FAILED(result))
        UnregisterInprocServer(clsid); // the first failure is the one to tell
    return result;
}

HRESULT UnregisterInprocServer(REFCLSID clsid)
{
    const LSTATUS status = RegDeleteTreeW(HKEY_CLASSES_ROOT, KeyOf(clsid).c_str());
    return status == ERROR_FILE_NOT_FOUND ? S_OK : ResultOf(status);
}
