#pragma once

#include "platform/com/Unknown.h"

using GetClassObjectFunction = HRESULT(STDMETHODCALLTYPE*)(REFCLSID, REFIID, void**);

// The entry point of the in-process server of a class; null when there is none. The server is loaded by the first who
// asks and stays until the process ends: a thread may still be on its way out of the server's code when the last of
// its objects is gone, and nobody can tell.
GetClassObjectFunction FindInprocServer(REFCLSID clsid) noexcept;
