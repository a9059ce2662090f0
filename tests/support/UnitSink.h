#pragma once

#include "support/RecordingSink.h"
#include "symb/CTraceSink.h"

// The recording sink for tests that use the plug-in's classes themselves.
class CUnitSink : public CRecordingSink, public CTraceSink
{
public:
    void Trace(LONG level, LPCSTR text) override { CRecordingSink::Trace(level, text); }
};
