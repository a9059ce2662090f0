#pragma once

#include "korvaproservices/ExportBytes.h"

enum class Utf16Result
{
    notUtf16,  // the bytes are as they were
    converted, // the bytes are UTF-8 now, without a byte order mark
    malformed
};

// Recognises UTF-16 of either byte order, by its mark or a leading "<", and
// turns it into UTF-8. The parser could do that too but drops half surrogate
// pairs silently; here each becomes U+FFFD. May raise std::bad_alloc.
Utf16Result ConvertUtf16(CExportBytes& bytes);
