#pragma once

#include "platform/mfc/CWinApp.h"

class CCriticalSection;

// The plug-in's application object.
class CSymbXmlApp : public CWinApp
{
public:
    // An exception on the way out must not end the host: it is swallowed, the code is -1 then.
    int ExitInstance() override;
};

// Serialises every use of the project-services component and every dump in the
// process. Taken after the lock of the loading object, never before it.
CCriticalSection& ImportLock();

// The plug-in's own module state, current while one of its exports runs.
AFX_MODULE_STATE& ModuleState();
