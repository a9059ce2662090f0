#pragma once

#include "korvaproservices/CExportBytes.h"
#include "platform/win32/Types.h"

#include <optional>

// Reads the whole file into `bytes`, which stays empty on failure. The results
// are those of ImportFile; never waits on what is not a regular file. May raise
// std::bad_alloc.
HRESULT ReadExportFile(LPCWSTR path, std::optional<CExportBytes>& bytes);
