#pragma once

#include "platform/com/Unknown.h"
#include "platform/win32/Library.h"

#include <memory>

// A loaded in-process server; its library is unloaded with the last holder.
//
// Hold it as long as code of the server runs on behalf of this layer.
class CInprocServer
{
public:
    explicit CInprocServer(REFCLSID served);
    CInprocServer(const CInprocServer&) = delete;
    CInprocServer& operator=(const CInprocServer&) = delete;
    ~CInprocServer();

    // Whether there is a server of the class. Without one the other operations must not be called.
    bool IsLoaded() const { return getClassObject != nullptr; }
    HRESULT GetClassObject(REFIID iid, void** object) const { return getClassObject(clsid, iid, object); }
    // Whether no object of the server is alive.
    bool CanUnload() const { return canUnloadNow && canUnloadNow() == S_OK; }

    const CLSID clsid;
    std::uint64_t uses = 1; // how often it was found; guarded by the lock of the table that keeps it

private:
    using GetClassObjectFunction = HRESULT (*)(REFCLSID, REFIID, void**);
    using CanUnloadFunction = HRESULT (*)();

    HMODULE library;
    GetClassObjectFunction getClassObject;
    CanUnloadFunction canUnloadNow;
};

// The server of the class, loaded by the first who asks and kept until
// FreeIdleServers; null when there is none.
std::shared_ptr<CInprocServer> FindInprocServer(REFCLSID clsid);

// Unloads the servers without living objects.
void FreeIdleServers();
