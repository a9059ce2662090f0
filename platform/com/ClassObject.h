// Finding and creating components.
#pragma once

#include "platform/com/Unknown.h"

#ifndef _WIN32

constexpr DWORD CLSCTX_INPROC_SERVER = 1;
constexpr DWORD REGCLS_MULTIPLEUSE = 1;
constexpr DWORD COINIT_MULTITHREADED = 0;

// Every thread that uses components first initialises COM. S_OK, or S_FALSE
// when the thread had done so before; each success is undone by one
// CoUninitialize. `reserved` must be null. All threads share one apartment here.
PLATFORM_API HRESULT CoInitializeEx(void* reserved, DWORD flags);
PLATFORM_API void CoUninitialize();

// Creates an object of class `clsid`: first from a class object registered in
// this process, then from the in-process server comservers/{CLSID}.so in the
// folder of the platform library (the identifier in upper-case registry form).
// `outer` must be null. REGDB_E_CLASSNOTREG when there is neither;
// CO_E_NOTINITIALIZED when no thread has initialised COM. `*object` is null on failure.
PLATFORM_API HRESULT CoCreateInstance(REFCLSID clsid, IUnknown* outer, DWORD context, REFIID iid, void** object);

// Makes `classObject` (an IClassFactory) the source of objects of `clsid` until
// it is revoked with the cookie. The newest registration of a class wins.
PLATFORM_API HRESULT CoRegisterClassObject(REFCLSID clsid, IUnknown* classObject, DWORD context, DWORD flags,
                                           DWORD* cookie);
PLATFORM_API HRESULT CoRevokeClassObject(DWORD cookie);

// Does nothing: an in-process server stays loaded until the process ends, because
// another thread may still run its code when the last of its objects is gone.
PLATFORM_API void CoFreeUnusedLibraries();

#endif
