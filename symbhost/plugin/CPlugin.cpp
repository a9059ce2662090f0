#include "symbhost/plugin/CPlugin.h"

#include "platform/win32/File.h"
#include "symbhost/Failure.h"
#include "symbhost/Text.h"
#include "symbhost/plugin/Installation.h"

#include <filesystem>
#include <system_error>

namespace {

// A bare file name would be searched for along the system's library path; the
// user means the one in the current folder.
std::string LibraryPath(const std::string& given)
{
    if (given.empty())
        return InstalledPlugin();
    const bool isBare = given.find('/') == std::string::npos && given.find(kPathSeparator) == std::string::npos;
    return isBare ? std::string(".") + kPathSeparator + given : given;
}

std::string WhyNotLoaded(const std::string& path, DWORD error)
{
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored))
        return "there is no such file";
    return "it is no library that this program can load, or one that it needs is missing (error " +
           std::to_string(error) + ")";
}

} // namespace

CPlugin::CPlugin(const std::string& given) : path(LibraryPath(given)), library(LoadLibraryA(path.c_str()))
{
    if (!library)
        throw CHostError("the plug-in " + path + " cannot be loaded: " + WhyNotLoaded(path, GetLastError()));
    newSymb = reinterpret_cast<NewSymbFunction>(Export(kNewSymbExport));
    deleteSymb = reinterpret_cast<DeleteSymbFunction>(Export(kDeleteSymbExport));
    getSymbType = reinterpret_cast<GetSymbTypeFunction>(Export(kGetSymbTypeExport));
}

FARPROC CPlugin::Export(LPCSTR name) const
{
    const FARPROC function = GetProcAddress(library.get(), name);
    if (!function)
        throw CHostError(path + " is no symbol-table plug-in: it does not export " + name);
    return function;
}

DWORD CPlugin::TypeCode() const
{
    DWORD typeCode = 0;
    if (const HRESULT result = getSymbType(&typeCode); FAILED(result))
        throw CHostError("GetSymbType failed with " + ResultText(result));
    return typeCode;
}

SymbHolder CPlugin::NewSymbolTable() const
{
    CSymb* symbolTable = nullptr;
    const HRESULT result = newSymb(&symbolTable);
    if (FAILED(result) || !symbolTable)
        throw CHostError("NewSymb failed with " + ResultText(result));
    return SymbHolder(symbolTable, CSymbDeleter{deleteSymb});
}
