#include "support/RecordingSink.h"

#include <stdexcept>
#include <utility>

void CRecordingSink::Trace(LONG level, LPCSTR text)
{
    std::unique_lock lock(guard);
    lines += (lines.empty() ? "" : " | ") + (level == 2 ? "" : "[" + std::to_string(level) + "] ") + text;
    if (holding) {
        ++held;
        changed.notify_all();
        changed.wait(lock, [this] { return !holding; });
        --held;
    }
    if (!thrownText.empty())
        throw std::runtime_error(thrownText);
}

std::string CRecordingSink::TakeText()
{
    std::lock_guard lock(guard);
    return std::exchange(lines, "");
}

void CRecordingSink::Hold()
{
    std::lock_guard lock(guard);
    holding = true;
}

void CRecordingSink::AwaitHeld()
{
    std::unique_lock lock(guard);
    changed.wait(lock, [this] { return held > 0; });
}

void CRecordingSink::Release()
{
    std::lock_guard lock(guard);
    holding = false;
    changed.notify_all();
}

void CRecordingSink::ThrowFromNowOn(std::string text)
{
    std::lock_guard lock(guard);
    thrownText = std::move(text);
}
