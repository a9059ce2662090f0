#include "platform/mfc/CString.h"

#include "platform/mfc/Conversion.h"
#include "platform/mfc/Exceptions.h"
#include "platform/mfc/UpperCase.h"
#include "platform/win32/CodePage.h"

#include <algorithm>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

// The length of two texts together.
int JoinedLength(std::size_t left, std::size_t right)
{
    if (left > INT_MAX || right > INT_MAX - left)
        AfxThrowMemoryException();
    return static_cast<int>(left + right);
}

std::string_view ViewOf(LPCSTR text)
{
    return text ? text : "";
}

} // namespace

CString::CString(LPCSTR text)
{
    Assign(ViewOf(text));
}

CString::CString(LPCSTR text, int length)
{
    if (text && length > 0)
        Assign({text, strnlen(text, static_cast<std::size_t>(length))});
}

CString::CString(LPCWSTR text)
{
    try {
        if (text)
            Assign(Narrow(text, CP_ACP));
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    }
}

CString& CString::operator=(LPCSTR text)
{
    Assign(ViewOf(text));
    return *this;
}

CString& CString::operator=(LPCWSTR text)
{
    return *this = CString(text);
}

CString& CString::operator+=(const CString& tail)
{
    if (IsEmpty())
        return *this = tail;
    Append(tail.View());
    return *this;
}

CString& CString::operator+=(LPCSTR tail)
{
    Append(ViewOf(tail));
    return *this;
}

CString& CString::operator+=(char tail)
{
    if (tail != '\0')
        Append({&tail, 1});
    return *this;
}

CString CString::Left(int count) const
{
    return Mid(0, count);
}

CString CString::Mid(int first) const
{
    return Mid(first, GetLength());
}

CString CString::Mid(int first, int count) const
{
    const int length = GetLength();
    const int start = std::clamp(first, 0, length);
    const int taken = std::clamp(count, 0, length - start);
    if (taken == length)
        return *this;
    CString part;
    part.Assign(View().substr(static_cast<std::size_t>(start), static_cast<std::size_t>(taken)));
    return part;
}

int CString::Find(char wanted, int start) const noexcept
{
    if (start < 0 || start >= GetLength())
        return -1;
    const void* const found = std::memchr(chars + start, wanted, static_cast<std::size_t>(GetLength() - start));
    return found ? static_cast<int>(static_cast<const char*>(found) - chars) : -1;
}

int CString::Find(LPCSTR wanted, int start) const noexcept
{
    if (!wanted || start < 0 || start > GetLength())
        return -1;
    const LPCSTR text = *this;
    const LPCSTR found = std::strstr(text + start, wanted);
    return found ? static_cast<int>(found - text) : -1;
}

int CString::ReverseFind(char wanted) const noexcept
{
    return static_cast<int>(static_cast<std::ptrdiff_t>(View().rfind(wanted)));
}

CString& CString::MakeUpper()
{
    const std::string_view text = View();
    const auto isLower = [](char c) { return Upper(c) != c; };
    const auto firstLower = std::find_if(text.begin(), text.end(), isLower) - text.begin();
    if (firstLower == GetLength())
        return *this;
    OwnBuffer(GetLength());
    std::transform(chars + firstLower, chars + GetLength(), chars + firstLower, Upper);
    return *this;
}

CString& CString::TrimLeft(char target)
{
    const std::string_view text = View();
    if (text.starts_with(target))
        Assign(text.substr(std::min(text.find_first_not_of(target), text.size())));
    return *this;
}

int CString::Replace(char old, char with)
{
    const std::string_view text = View();
    const auto count = static_cast<int>(std::count(text.begin(), text.end(), old));
    if (count == 0 || old == with)
        return 0;
    OwnBuffer(GetLength());
    std::replace(chars, chars + GetLength(), old, with);
    return count;
}

int CString::Compare(LPCSTR other) const noexcept
{
    return std::strcmp(*this, other ? other : "");
}

int CString::CompareNoCase(LPCSTR other) const noexcept
{
    LPCSTR left = *this;
    LPCSTR right = other ? other : "";
    while (*left && Upper(*left) == Upper(*right)) {
        ++left;
        ++right;
    }
    return static_cast<unsigned char>(Upper(*left)) - static_cast<unsigned char>(Upper(*right));
}

void CString::Format(LPCSTR format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    CString formatted = Formatted(format, arguments);
    va_end(arguments);
    std::swap(chars, formatted.chars);
}

void CString::AppendFormat(LPCSTR format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const CString formatted = Formatted(format, arguments);
    va_end(arguments);
    *this += formatted;
}

LPSTR CString::GetBuffer(int capacity)
{
    OwnBuffer(std::max(capacity, GetLength()));
    return chars;
}

void CString::ReleaseBuffer(int length)
{
    if (!chars)
        return;
    const int capacity = Head().capacity;
    const int newLength =
        length < 0 ? static_cast<int>(strnlen(chars, static_cast<std::size_t>(capacity))) : std::min(length, capacity);
    SetLength(newLength);
    if (newLength == 0)
        Empty();
}

CString CString::Join(std::string_view left, std::string_view right)
{
    const int length = JoinedLength(left.size(), right.size());
    CString joined;
    if (length == 0)
        return joined;
    joined.chars = NewBuffer(length);
    std::copy(right.begin(), right.end(), std::copy(left.begin(), left.end(), joined.chars));
    joined.SetLength(length);
    return joined;
}

CString CString::Formatted(LPCSTR format, std::va_list arguments)
{
    char text[512];
    std::va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(text, sizeof text, format, arguments);
    CString formatted;
    if (length >= 0 && static_cast<std::size_t>(length) < sizeof text)
        formatted.Assign({text, static_cast<std::size_t>(length)});
    else if (length > 0 && length < INT_MAX) {
        formatted.chars = NewBuffer(length);
        std::vsnprintf(formatted.chars, static_cast<std::size_t>(length) + 1, format, again);
        formatted.SetLength(length);
    }
    va_end(again);
    if (length < 0 || length == INT_MAX)
        AfxThrowMemoryException();
    return formatted;
}

void CString::Assign(std::string_view text)
{
    if (text.empty()) {
        Empty();
        return;
    }
    const int length = JoinedLength(text.size(), 0);
    if (chars && IsExclusive() && Head().capacity >= length)
        std::memmove(chars, text.data(), text.size()); // `text` may be a part of our own
    else {
        char* const copy = NewBuffer(length);
        std::memcpy(copy, text.data(), text.size());
        Drop();
        chars = copy;
    }
    SetLength(length);
}

void CString::Append(std::string_view tail)
{
    if (tail.empty())
        return;
    const int oldLength = GetLength();
    const int newLength = JoinedLength(static_cast<std::size_t>(oldLength), tail.size());
    if (chars && IsExclusive() && Head().capacity >= newLength)
        std::memmove(chars + oldLength, tail.data(), tail.size()); // `tail` may be a part of our own
    else {
        // Half as much again, so that a text built piece by piece is copied seldom.
        const int roomier = oldLength + std::min(oldLength / 2, INT_MAX - oldLength);
        char* const larger = NewBuffer(std::max(newLength, roomier));
        std::copy(tail.begin(), tail.end(), std::copy_n(operator LPCSTR(), oldLength, larger));
        Drop();
        chars = larger;
    }
    SetLength(newLength);
}

void CString::OwnBuffer(int capacity)
{
    if (chars && IsExclusive() && Head().capacity >= capacity)
        return;
    const int length = GetLength();
    char* const own = NewBuffer(capacity);
    std::copy_n(operator LPCSTR(), length, own);
    Drop();
    chars = own;
    SetLength(length);
}

void CString::SetLength(int length) noexcept
{
    Head().length = length;
    chars[length] = '\0';
}

char* CString::NewBuffer(int capacity)
{
    void* const memory = std::malloc(sizeof(Header) + static_cast<std::size_t>(capacity) + 1);
    if (!memory)
        AfxThrowMemoryException();
    return reinterpret_cast<char*>(new (memory) Header{1, 0, capacity} + 1);
}
