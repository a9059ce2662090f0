#include "platform/mfc/CStdioFile.h"

#include "platform/mfc/Exceptions.h"

#include <algorithm>
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
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        Collect(line);
        text.remove_prefix(line.size());
        if (!text.empty()) {
            Collect("\r\n");
            text.remove_prefix(1);
        }
    }
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

void CStdioFile::Collect(std::string_view bytes)
{
    while (!bytes.empty()) {
        if (pending.size() == kPendingBytes && !WritePending())
            AfxThrowFileException(GetLastError());
        const std::string_view fitting = bytes.substr(0, kPendingBytes - pending.size());
        try {
            pending.append(fitting);
        } catch (const std::bad_alloc&) {
            AfxThrowMemoryException();
        }
        bytes.remove_prefix(fitting.size());
    }
}

bool CStdioFile::WritePending() noexcept
{
    DWORD done = 0;
    const bool written =
        pending.empty() || WriteFile(file, pending.data(), static_cast<DWORD>(pending.size()), &done, nullptr);
    pending.clear();
    return written;
}
