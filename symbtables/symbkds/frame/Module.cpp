// The module-wide objects, from the loading of the library to its unloading.
#include "platform/mfc/CCriticalSection.h"
#include "symbkds/frame/CSymbXmlApp.h"
#include "symbkds/frame/Guard.h"
#include "symbkds/frame/LockRanks.h"

namespace {

// Constructed in this order, destroyed in the reverse one.
CCriticalSection importLock(kImportLockRank);
CSymbXmlApp application;
AFX_MODULE_STATE moduleState(application);

} // namespace

int CSymbXmlApp::ExitInstance()
{
    int code = -1;
    RunGuarded([&] { code = CWinApp::ExitInstance(); }, [](LPCSTR) {});
    return code;
}

CCriticalSection& ImportLock()
{
    return importLock;
}

AFX_MODULE_STATE& ModuleState()
{
    return moduleState;
}
