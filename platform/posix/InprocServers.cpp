#include "platform/posix/InprocServers.h"

#include "platform/com/InprocServerFile.h"
#include "platform/posix/SharedLibrary.h"

#include <climits>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <filesystem>

namespace {

// The file of a class's server: named after the class, in a folder beside this library. False when its path is too
// long.
bool ServerPath(REFCLSID clsid, char (&path)[PATH_MAX]) noexcept
{
    Dl_info self{};
    dladdr(reinterpret_cast<const void*>(&FindInprocServer), &self);
    const char* const library = self.dli_fname ? self.dli_fname : "";
    const char* const slash = std::strrchr(library, '/');
    const BYTE* const last = clsid.Data4;
    const int length =
        std::snprintf(path, sizeof path, "%.*s/comservers/{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}.so",
                      slash ? static_cast<int>(slash - library) : 1, slash ? library : ".", clsid.Data1, clsid.Data2,
                      clsid.Data3, last[0], last[1], last[2], last[3], last[4], last[5], last[6], last[7]);
    return length >= 0 && static_cast<std::size_t>(length) < sizeof path;
}

} // namespace

GetClassObjectFunction FindInprocServer(REFCLSID clsid) noexcept
{
    char path[PATH_MAX];
    if (!ServerPath(clsid, path))
        return nullptr;
    // The system keeps one copy of the library and counts how often it was asked for; nothing is ever given back.
    void* const server = OpenSharedLibrary(path);
    return server ? reinterpret_cast<GetClassObjectFunction>(dlsym(server, "DllGetClassObject")) : nullptr;
}

std::string InprocServerPlace(REFCLSID clsid)
{
    char path[PATH_MAX];
    return ServerPath(clsid, path) ? std::filesystem::path(path).lexically_normal().string()
                                   : "a path that is too long";
}

std::string ModuleFile(const void* address)
{
    Dl_info module{};
    return dladdr(address, &module) != 0 && module.dli_fname ? module.dli_fname : "";
}
