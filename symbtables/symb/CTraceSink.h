#pragma once

#include "platform/win32/Types.h"

// Receives the diagnostic lines of a symbol table; implemented by the host.
//
// The host passes a sink to Init and keeps it alive as long as the symbol table
// lives. Calls come on the thread that called the symbol table, while that
// thread holds the table's lock and, inside Init, the import lock of the
// process. So one sink may be called from several threads, and it must not call
// back into the same symbol table or into Init of another one.
class CTraceSink
{
public:
    static constexpr LONG kLevelFileTime = 1; // the export file's time cannot be read
    static constexpr LONG kLevelFailure = 2;  // Init, an import or a lookup failed

    // One line without a line end. `text` is valid during the call only; the
    // export's path in it has the encoding in which the host gave it, names are
    // UTF-8.
    virtual void Trace(LONG level, LPCSTR text) = 0;

protected:
    ~CTraceSink() = default;
};
