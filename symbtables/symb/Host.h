// All that a host includes: the contract, and the calls that a host makes beside
// it. On Windows these are the system's own, elsewhere stand-ins under the same
// names.
//
//   COM           CoInitializeEx(nullptr, COINIT_MULTITHREADED) on the thread
//                 that calls Init, before it; CoUninitialize when the last
//                 symbol table is gone
//   the plug-in   LoadLibraryA(SHARED_LIBRARY_NAME("symbkds")), GetProcAddress
//                 with the names in symb/Exports.h, FreeLibrary; GetLastError
//                 tells why one of them failed
//   giving back   free, of <cstdlib>: an AddressDescriptor; delete[]: an array
//                 of PropertyEntry; CoTaskMemFree: the texts of a BrowseElement,
//                 the array itself, a continuation point
//   arrays        CoTaskMemAlloc, where the host provides the array of a listing
//                 with a limit
//   properties    VARIANT with vt, lVal (VT_I4) and bstrVal (VT_BSTR: UTF-16,
//                 SysStringLen units)
//   texts         CString converts to LPCSTR and keeps its bytes as long as it
//                 lives; CStringArray, which BrowseSymbols appends to, has
//                 GetSize() entries from GetAt(0) on and is emptied by
//                 RemoveAll()
//   exceptions    CMemoryException, which is no std::exception
#pragma once

#include "platform/com/Bstr.h"
#include "platform/com/ClassObject.h"
#include "platform/com/TaskMemory.h"
#include "platform/com/Variant.h"
#include "platform/mfc/CArray.h"
#include "platform/mfc/CString.h"
#include "platform/mfc/Exceptions.h"
#include "platform/win32/Library.h"
#include "symb/Exports.h"
#include "symb/Version.h"
