#include "platform/posix/InprocServers.h"

#include <algorithm>
#include <cstdio>
#include <dlfcn.h>
#include <mutex>
#include <new>
#include <string>
#include <vector>

namespace {

using ServerPtr = std::shared_ptr<CInprocServer>;

// The servers that are loaded. The lock is not held while their code runs.
struct ServerTable
{
    std::mutex lock;
    std::vector<ServerPtr> servers;

    // The lock must be held.
    ServerPtr Find(REFCLSID clsid) const
    {
        const auto found = std::ranges::find(servers, clsid, [](const ServerPtr& server) { return server->clsid; });
        if (found == servers.end())
            return nullptr;
        ++(*found)->uses;
        return *found;
    }
};

// Never destroyed: libraries unloaded while the program ends may still come here.
ServerTable& Servers()
{
    static ServerTable& table = *new ServerTable;
    return table;
}

// A server that nobody is using just now, and how often it had been used by then.
struct IdleServer
{
    ServerPtr server;
    std::uint64_t uses;
};

std::vector<IdleServer> IdleServers(ServerTable& table)
{
    std::vector<IdleServer> idle; // outlives the lock
    const std::lock_guard guard(table.lock);
    for (const ServerPtr& server : table.servers)
        if (server.use_count() == 1)
            idle.push_back({server, server->uses});
    return idle;
}

std::string PathOfServer(REFCLSID clsid)
{
    Dl_info self{};
    dladdr(reinterpret_cast<const void*>(&PathOfServer), &self);
    const std::string library = self.dli_fname ? self.dli_fname : "";
    const std::size_t slash = library.rfind('/');
    const BYTE* const last = clsid.Data4;
    char name[64];
    std::snprintf(name, sizeof name, "/comservers/{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}.so", clsid.Data1,
                  clsid.Data2, clsid.Data3, last[0], last[1], last[2], last[3], last[4], last[5], last[6], last[7]);
    return (slash != std::string::npos ? library.substr(0, slash) : ".") + name;
}

} // namespace

CInprocServer::CInprocServer(REFCLSID served)
    : clsid(served), library(LoadLibraryA(PathOfServer(served).c_str())),
      getClassObject(reinterpret_cast<GetClassObjectFunction>(GetProcAddress(library, "DllGetClassObject"))),
      canUnloadNow(reinterpret_cast<CanUnloadFunction>(GetProcAddress(library, "DllCanUnloadNow")))
{}

CInprocServer::~CInprocServer()
{
    if (library)
        FreeLibrary(library);
}

ServerPtr FindInprocServer(REFCLSID clsid)
{
    ServerTable& table = Servers();
    {
        const std::lock_guard guard(table.lock);
        if (ServerPtr known = table.Find(clsid))
            return known;
    }
    ServerPtr loaded = std::make_shared<CInprocServer>(clsid); // outlives the lock
    if (!loaded->IsLoaded())
        return nullptr;
    const std::lock_guard guard(table.lock);
    if (ServerPtr first = table.Find(clsid))
        return first; // another thread was faster
    table.servers.push_back(loaded);
    return loaded;
}

// A server can go when nobody used it from before the question whether it has
// objects until after the answer. When memory is short, all stay.
void FreeIdleServers()
{
    try {
        ServerTable& table = Servers();
        for (const IdleServer& candidate : IdleServers(table)) {
            if (!candidate.server->CanUnload())
                continue;
            const std::lock_guard guard(table.lock);
            if (candidate.server->uses == candidate.uses)
                std::erase(table.servers, candidate.server);
        }
    } catch (const std::bad_alloc&) {}
}
