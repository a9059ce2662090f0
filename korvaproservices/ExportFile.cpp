#include "korvaproservices/ExportFile.h"

#include "platform/mfc/CFileHandle.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr std::size_t kReadBytes = 16U << 20; // per call; the system counts in 32 bits

HRESULT LastResult()
{
    switch (const DWORD error = GetLastError()) {
    case ERROR_PATH_NOT_FOUND: // a missing folder is to the caller what a missing file is
        return HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
    case ERROR_NOT_ENOUGH_MEMORY:
        return E_OUTOFMEMORY;
    default:
        return HRESULT_FROM_WIN32(error);
    }
}

// A file that shrinks while it is read gives what there is.
HRESULT Fill(HANDLE file, CExportBytes& bytes)
{
    std::size_t filled = 0;
    while (filled < bytes.size) {
        const DWORD wanted = static_cast<DWORD>(std::min(bytes.size - filled, kReadBytes));
        DWORD done = 0;
        if (!ReadFile(file, bytes.block.get() + filled, wanted, &done, nullptr))
            return LastResult();
        if (done == 0)
            break;
        filled += done;
    }
    bytes.size = filled;
    return S_OK;
}

} // namespace

HRESULT ReadExportFile(LPCWSTR path, std::optional<CExportBytes>& bytes)
{
    // Asked for first: where a folder can be opened at all, opening one reports no access.
    const DWORD attributes = GetFileAttributesW(path);
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return LastResult();
    if (attributes & FILE_ATTRIBUTE_DIRECTORY)
        return HRESULT_FROM_WIN32(ERROR_INVALID_DATA);
    const CFileHandle file(
        CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen())
        return LastResult();
    if (GetFileType(file.Get()) != FILE_TYPE_DISK)
        return HRESULT_FROM_WIN32(ERROR_INVALID_DATA);
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file.Get(), &size))
        return LastResult();
    if (std::cmp_greater(size.QuadPart, std::numeric_limits<std::ptrdiff_t>::max() / 2))
        return E_OUTOFMEMORY;
    CExportBytes content(static_cast<std::size_t>(size.QuadPart));
    const HRESULT filled = Fill(file.Get(), content);
    if (SUCCEEDED(filled))
        bytes = std::move(content);
    return filled;
}
