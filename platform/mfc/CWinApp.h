// The application object and module state of a library.
#pragma once

#include "platform/win32/Types.h"

// One per library; constructed when the library is loaded.
class PLATFORM_API CWinApp
{
public:
    CWinApp() = default;
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;
    virtual ~CWinApp();

    // Called once after the module-wide objects are constructed; FALSE means that the library is of no use.
    virtual BOOL InitInstance();
    // Called once before they are destroyed; the library's exit code.
    virtual int ExitInstance();
};

// What a library's code calls "the current module" while one of its exports runs.
class PLATFORM_API AFX_MODULE_STATE
{
public:
    // Starts the application; its destruction ends it.
    explicit AFX_MODULE_STATE(CWinApp& starting);
    AFX_MODULE_STATE(const AFX_MODULE_STATE&) = delete;
    AFX_MODULE_STATE& operator=(const AFX_MODULE_STATE&) = delete;
    ~AFX_MODULE_STATE();

private:
    CWinApp& application;
};

// The state of the innermost export that runs on this thread; null outside.
PLATFORM_API AFX_MODULE_STATE* AfxGetModuleState();

// Makes `state` the current one for its own lifetime and then restores the one before.
class PLATFORM_API AFX_MAINTAIN_STATE2
{
public:
    explicit AFX_MAINTAIN_STATE2(AFX_MODULE_STATE* state);
    AFX_MAINTAIN_STATE2(const AFX_MAINTAIN_STATE2&) = delete;
    AFX_MAINTAIN_STATE2& operator=(const AFX_MAINTAIN_STATE2&) = delete;
    ~AFX_MAINTAIN_STATE2();

private:
    AFX_MODULE_STATE* previous;
};
