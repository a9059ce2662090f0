#pragma once

#include "platform/win32/Types.h"

#include <condition_variable>
#include <mutex>
#include <string>

// What a host implements to receive diagnostic lines, declared as a host's author reads it from the documents: an
// object whose first virtual operation takes a level and a text.
class CHostSink
{
public:
    virtual void Trace(LONG level, LPCSTR text) = 0;

protected:
    ~CHostSink() = default;
};

// A sink that keeps what it receives. May be called from several threads.
class CRecordingSink : public CHostSink
{
public:
    virtual ~CRecordingSink() = default;

    void Trace(LONG level, LPCSTR text) override;

    // The lines joined by " | ", those of another level than 2 with the level in front: "[1] text".
    // They are forgotten afterwards.
    std::string TakeText();

    // From now on Trace records its line and waits until Release.
    void Hold();
    // Waits until a caller is held in Trace.
    void AwaitHeld();
    void Release();

    // From now on Trace throws std::runtime_error(text) after recording; empty: no more.
    void ThrowFromNowOn(std::string text);

private:
    std::mutex guard;
    std::condition_variable changed;
    std::string lines;
    std::string thrownText;
    bool holding = false;
    int held = 0;
};
