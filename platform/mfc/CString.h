#pragma once

#include "platform/win32/Types.h"

#include <atomic>
#include <cstdarg>
#include <cstdlib>
#include <string_view>
#include <utility>

// A narrow text of bytes, null-terminated, without a null inside.
//
// Copies share one buffer until one of them is changed; the count of sharers is
// atomic, so copies may live on different threads. An empty text owns nothing.
// Positions and lengths count bytes. Operations that allocate raise
// CMemoryException.
class PLATFORM_API CString
{
public:
    CString() noexcept = default;
    CString(const CString& other) noexcept : chars(other.chars)
    {
        if (chars)
            Head().sharers.fetch_add(1, std::memory_order_relaxed);
    }
    CString(CString&& other) noexcept : chars(other.chars) { other.chars = nullptr; }
    // Null counts as empty. A text given with its length ends at its first null all the same.
    CString(LPCSTR text);
    CString(LPCSTR text, int length);
    // Converts from UTF-16 to the process's ANSI code page.
    explicit CString(LPCWSTR text);
    ~CString() { Drop(); }

    CString& operator=(const CString& other) noexcept
    {
        CString copy(other);
        std::swap(chars, copy.chars);
        return *this;
    }
    CString& operator=(CString&& other) noexcept
    {
        std::swap(chars, other.chars);
        return *this;
    }
    CString& operator=(LPCSTR text);
    CString& operator=(LPCWSTR text);

    CString& operator+=(const CString& tail);
    CString& operator+=(LPCSTR tail);
    CString& operator+=(char tail);

    operator LPCSTR() const noexcept { return chars ? chars : ""; }
    std::string_view View() const noexcept { return {operator LPCSTR(), static_cast<std::size_t>(GetLength())}; }
    int GetLength() const noexcept { return chars ? Head().length : 0; }
    bool IsEmpty() const noexcept { return chars == nullptr; }
    // `position` in 0..GetLength(); at the end it reads the terminator.
    char GetAt(int position) const noexcept { return operator LPCSTR()[position]; }

    void Empty() noexcept
    {
        Drop();
        chars = nullptr;
    }

    // The parts of the text; arguments beyond its ends are cut to fit.
    CString Left(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;

    // First position of the character or text from `start` on; -1 when there is
    // none or `start` lies outside the text.
    int Find(char wanted, int start = 0) const noexcept;
    int Find(LPCSTR wanted, int start = 0) const noexcept;
    int ReverseFind(char wanted) const noexcept;

    // Makes a to z A to Z; bytes above 0x7F stay.
    CString& MakeUpper();
    // Takes the leading characters that equal `target` off.
    CString& TrimLeft(char target);
    // Replaces every `old`; returns how many there were.
    int Replace(char old, char with);

    // As if three-way comparison of the bytes; negative, 0 or positive.
    int Compare(LPCSTR other) const noexcept;
    // The same with a to z taken as A to Z.
    int CompareNoCase(LPCSTR other) const noexcept;

    // printf rules.
    void Format(LPCSTR format, ...) __attribute__((format(printf, 2, 3)));
    void AppendFormat(LPCSTR format, ...) __attribute__((format(printf, 2, 3)));

    // A buffer of its own with room for `capacity` bytes and a terminator, which holds the text;
    // after writing to it, ReleaseBuffer sets the new length (-1: up to the terminator).
    LPSTR GetBuffer(int capacity);
    void ReleaseBuffer(int length = -1);

    friend CString operator+(const CString& left, const CString& right) { return Join(left.View(), right.View()); }
    friend CString operator+(const CString& left, LPCSTR right) { return Join(left.View(), right); }
    friend CString operator+(LPCSTR left, const CString& right) { return Join(left, right.View()); }

    friend bool operator==(const CString& left, const CString& right) noexcept { return left.View() == right.View(); }
    friend bool operator==(const CString& left, LPCSTR right) noexcept { return left.Compare(right) == 0; }
    friend bool operator==(LPCSTR left, const CString& right) noexcept { return right.Compare(left) == 0; }

private:
    // Stands in front of the text in one block of malloc.
    struct Header
    {
        std::atomic<std::int32_t> sharers;
        std::int32_t length;
        std::int32_t capacity; // without the terminator
    };

    static CString Join(std::string_view left, std::string_view right);
    static CString Formatted(LPCSTR format, std::va_list arguments) __attribute__((format(printf, 1, 0)));
    // The text of a new buffer with one sharer, its length not set yet.
    static char* NewBuffer(int capacity);

    // The following need `chars`. The analyser does not follow the count of sharers.
    // NOLINTNEXTLINE(clang-analyzer-unix.Malloc)
    Header& Head() const noexcept { return reinterpret_cast<Header*>(chars)[-1]; }
    bool IsExclusive() const noexcept { return Head().sharers.load(std::memory_order_acquire) == 1; }
    void SetLength(int length) noexcept;

    // Both take a part of this text as well.
    void Assign(std::string_view text);
    void Append(std::string_view tail);
    // Makes the buffer our own, with room for `capacity` bytes (not less than the length).
    void OwnBuffer(int capacity);
    void Drop() noexcept
    {
        if (chars && (IsExclusive() || Head().sharers.fetch_sub(1, std::memory_order_acq_rel) == 1))
            std::free(&Head());
    }

    // The first byte of the text behind its header; null when empty.
    char* chars = nullptr;
};
