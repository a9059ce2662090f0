#pragma once

#include "platform/win32/Types.h"

// What a host implements to receive diagnostic lines, declared as a host's author reads it from the documents: an
// object whose first virtual operation takes a level and a text.
class CHostSink
{
public:
    virtual void Trace(LONG level, LPCSTR text) = 0;

protected:
    ~CHostSink() = default;
};
