#include "platform/mfc/CStdioFile.h"

#include "platform/mfc/Exceptions.h"

#include <new>
#include <utility>

namespace {

constexpr std::size_t kPendingBytes = 64 * 1024;

} // namespace

CStdioFile::~CStdioFile()
{
    if (!file)
        return;
    WritePending();
    CloseHandle(file);
}

bool CStdioFile::Create(LPCSTR path)
{
    if (file)
        return false;
    const HANDLE created = CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (created == INVALID_HANDLE_VALUE)
        return false;
    file = created;
    return true;
}

void CStdioFile::Write(std::string_view text)
{
    if (pending.empty())
        try {
            pending.resize(kPendingBytes);
        } catch (const std::bad_alloc&) {
            AfxThrowMemoryException();
        }
    char* const buffer = pending.data();
    std::size_t at = used;
    for (const char c : text) {
        if (at + 2 > kPendingBytes) {
            used = std::exchange(at, 0);
            if (!WritePending())
                AfxThrowFileException(GetLastError());
        }
        if (c == '\n')
            buffer[at++] = '\r';
        buffer[at++] = c;
    }
    used = at;
}

void CStdioFile::Close()
{
    if (!file)
        return;
    const bool written = WritePending();
    const DWORD error = GetLastError();
    const BOOL closed = CloseHandle(std::exchange(file, nullptr));
    if (!written || !closed)
        AfxThrowFileException(written ? GetLastError() : error);
}

bool CStdioFile::WritePending() noexcept
{
    DWORD done = 0;
    const auto bytes = static_cast<DWORD>(std::exchange(used, 0));
    return WriteFile(file, pending.data(), bytes, &done, nullptr);
}
