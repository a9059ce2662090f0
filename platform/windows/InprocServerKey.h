// The registry entry of an in-process server. Windows only: elsewhere servers are found by their file names.
#pragma once

#include "platform/com/Unknown.h"

#include <string>

// The key that names the server of a class, below HKEY_CLASSES_ROOT.
std::wstring InprocServerKey(REFCLSID clsid);

// Enters the library that this code is part of as the in-process server of
// `clsid`, usable from every kind of thread, under HKEY_CLASSES_ROOT\CLSID. An
// entry that could not be completed is removed again. The result is that of the
// failed call of the registry; most often access denied.
HRESULT RegisterInprocServer(REFCLSID clsid, LPCWSTR description);

// Removes the entry; S_OK also when there is none.
HRESULT UnregisterInprocServer(REFCLSID clsid);
