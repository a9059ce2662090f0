#include "platform/mfc/CWinApp.h"

#include <utility>

namespace {

thread_local AFX_MODULE_STATE* currentState = nullptr;

} // namespace

CWinApp::~CWinApp() = default;

BOOL CWinApp::InitInstance()
{
    return TRUE;
}

int CWinApp::ExitInstance()
{
    return 0;
}

AFX_MODULE_STATE::AFX_MODULE_STATE(CWinApp& starting) : application(starting)
{
    // There is nobody to refuse the library to: it is being loaded already.
    application.InitInstance();
}

AFX_MODULE_STATE::~AFX_MODULE_STATE()
{
    application.ExitInstance(); // the exit code of a library interests nobody
}

AFX_MODULE_STATE* AfxGetModuleState()
{
    return currentState;
}

AFX_MAINTAIN_STATE2::AFX_MAINTAIN_STATE2(AFX_MODULE_STATE* state) : previous(std::exchange(currentState, state)) {}

AFX_MAINTAIN_STATE2::~AFX_MAINTAIN_STATE2()
{
    currentState = previous;
}
