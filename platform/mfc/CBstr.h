#pragma once

#include "platform/com/Bstr.h"

#include <utility>

// Owns one BSTR.
class PLATFORM_API CBstr
{
public:
    CBstr() noexcept = default;
    // Copies `text` up to its terminator. Raises COleException when memory is short.
    explicit CBstr(LPCWSTR text);
    CBstr(const CBstr&) = delete;
    CBstr& operator=(const CBstr&) = delete;
    CBstr(CBstr&& other) noexcept : held(std::exchange(other.held, nullptr)) {}
    CBstr& operator=(CBstr&& other) noexcept
    {
        CBstr taken(std::move(other)); // frees the text held before
        std::swap(held, taken.held);
        return *this;
    }
    ~CBstr() { SysFreeString(held); }

    // From narrow text in `codePage`, which ASCII text does not need; null counts as empty. Raises COleException
    // when memory is short or there is no such code page.
    static CBstr FromNarrow(LPCSTR text, unsigned codePage);

    // Where an out argument stores the text that becomes ours; frees the one held before.
    BSTR* Put() noexcept
    {
        SysFreeString(std::exchange(held, nullptr));
        return &held;
    }

    BSTR Detach() noexcept { return std::exchange(held, nullptr); }

    BSTR Get() const noexcept { return held; }
    unsigned Length() const noexcept { return SysStringLen(held); }

private:
    BSTR held = nullptr;
};
