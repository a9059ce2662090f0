#pragma once

#include "platform/mfc/CString.h"

// The path of the dump of an export: its own path as one file name inside the folder, ":" and path separators replaced.
//
// Both texts are in the code page `codePage`. In those of 932, 936 and 950 the second byte of a character may be 0x5C:
// it belongs to its character and is no separator.
CString DumpFileName(const CString& directory, const CString& sourcePath, UINT codePage);
