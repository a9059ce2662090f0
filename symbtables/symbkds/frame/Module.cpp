// The module-wide objects, from the loading of the library to its unloading.
#include "platform/mfc/CCriticalSection.h"
#include "symbkds/frame/CSymbXmlApp.h"

namespace {

// Constructed in this order, destroyed in the reverse one.
CCriticalSection importLock;
CSymbXmlApp application;
AFX_MODULE_STATE moduleState(application);

} // namespace

int CSymbXmlApp::ExitInstance()
{
    try {
        return CWinApp::ExitInstance();
    } catch (...) {
        return -1;
    }
}

CCriticalSection& ImportLock()
{
    return importLock;
}

AFX_MODULE_STATE& ModuleState()
{
    return moduleState;
}
