#include "platform/win32/File.h"

#include "platform/win32/CodePage.h"

#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

DWORD ErrorOf(int error)
{
    switch (error) {
    case ENOENT:
        return ERROR_FILE_NOT_FOUND;
    case ENOTDIR:
    case ELOOP:
        return ERROR_PATH_NOT_FOUND;
    case EACCES:
    case EPERM:
    case EISDIR:
    case EROFS:
    case ETXTBSY:
        return ERROR_ACCESS_DENIED;
    case ENOMEM:
        return ERROR_NOT_ENOUGH_MEMORY;
    case ENOSPC:
    case EFBIG:
    case EDQUOT:
        return ERROR_DISK_FULL;
    case ENAMETOOLONG:
        return ERROR_INVALID_NAME;
    case ENXIO: // a socket, a terminal that is gone, a pipe that nobody reads: nothing that holds a file
        return ERROR_INVALID_DATA;
    case EINVAL:
        return ERROR_INVALID_PARAMETER;
    default:
        return ERROR_GEN_FAILURE;
    }
}

BOOL Fail(DWORD error)
{
    SetLastError(error);
    return FALSE;
}

// A handle is the descriptor plus one, so that descriptor 0 is no null handle.
HANDLE HandleOf(int descriptor)
{
    return reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(descriptor) + 1);
}

int DescriptorOf(HANDLE file)
{
    return static_cast<int>(reinterpret_cast<std::intptr_t>(file) - 1);
}

// A path in UTF-8, on the stack.
class CNarrowPath
{
public:
    explicit CNarrowPath(LPCWSTR wide)
        : valid(WideCharToMultiByte(CP_ACP, 0, wide, -1, bytes, sizeof bytes, nullptr, nullptr) != 0)
    {}

    // False, with the error set, when the path is longer than the system takes.
    bool IsValid() const { return valid || Fail(ERROR_INVALID_NAME); }
    LPCSTR Get() const { return bytes; }

private:
    char bytes[PATH_MAX];
    bool valid;
};

// Takes the lock that stands for the share mode, and empties a file that is to
// be written only once the lock is held. Returns the error. Only regular files
// are locked and emptied. A directory cannot be opened, nor a pipe or socket to
// be written: its reader may go away, and the next write would end the process
// by a signal.
DWORD Claim(int descriptor, bool writing, bool shared)
{
    struct stat status;
    if (fstat(descriptor, &status) != 0)
        return ErrorOf(errno);
    const bool toSomeone = S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode);
    if (S_ISDIR(status.st_mode) || (writing && toSomeone))
        return ERROR_ACCESS_DENIED;
    if (!S_ISREG(status.st_mode))
        return ERROR_SUCCESS;
    // A file system without locks does not keep anyone from its files.
    if (flock(descriptor, (shared ? LOCK_SH : LOCK_EX) | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        return ERROR_SHARING_VIOLATION;
    return writing && ftruncate(descriptor, 0) != 0 ? ErrorOf(errno) : ERROR_SUCCESS;
}

} // namespace

HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD shareMode, void* security, DWORD disposition, DWORD attributes,
                   HANDLE templateFile)
{
    const bool reading = access == GENERIC_READ && disposition == OPEN_EXISTING;
    const bool writing = access == GENERIC_WRITE && disposition == CREATE_ALWAYS;
    if (!path || (!reading && !writing) || security || attributes != FILE_ATTRIBUTE_NORMAL || templateFile) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return INVALID_HANDLE_VALUE;
    }
    const int mode = writing ? O_WRONLY | O_CREAT : O_RDONLY;
    const int descriptor = open(path, mode | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666);
    const DWORD error = descriptor < 0 ? ErrorOf(errno) : Claim(descriptor, writing, shareMode == FILE_SHARE_READ);
    if (error == ERROR_SUCCESS)
        return HandleOf(descriptor);
    if (descriptor >= 0)
        close(descriptor);
    SetLastError(error);
    return INVALID_HANDLE_VALUE;
}

HANDLE CreateFileW(LPCWSTR path, DWORD access, DWORD shareMode, void* security, DWORD disposition, DWORD attributes,
                   HANDLE templateFile)
{
    const CNarrowPath narrow(path);
    return narrow.IsValid()
               ? CreateFileA(narrow.Get(), access, shareMode, security, disposition, attributes, templateFile)
               : INVALID_HANDLE_VALUE;
}

BOOL ReadFile(HANDLE file, void* buffer, DWORD bytes, DWORD* done, void* overlapped)
{
    if (!done || overlapped)
        return Fail(ERROR_INVALID_PARAMETER);
    *done = 0;
    ssize_t got;
    do
        got = read(DescriptorOf(file), buffer, bytes);
    while (got < 0 && errno == EINTR);
    if (got < 0)
        return Fail(ErrorOf(errno));
    *done = static_cast<DWORD>(got);
    return TRUE;
}

BOOL WriteFile(HANDLE file, const void* buffer, DWORD bytes, DWORD* done, void* overlapped)
{
    if (!done || overlapped)
        return Fail(ERROR_INVALID_PARAMETER);
    *done = 0;
    while (*done < bytes) {
        const ssize_t put = write(DescriptorOf(file), static_cast<const char*>(buffer) + *done, bytes - *done);
        if (put < 0 && errno == EINTR)
            continue;
        if (put <= 0)
            return Fail(put == 0 ? ERROR_DISK_FULL : ErrorOf(errno));
        *done += static_cast<DWORD>(put);
    }
    return TRUE;
}

BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size)
{
    struct stat status;
    if (!size || fstat(DescriptorOf(file), &status) != 0 || !S_ISREG(status.st_mode))
        return Fail(ERROR_INVALID_PARAMETER);
    size->QuadPart = status.st_size;
    return TRUE;
}

DWORD GetFileType(HANDLE file)
{
    struct stat status;
    if (fstat(DescriptorOf(file), &status) != 0) {
        SetLastError(ErrorOf(errno));
        return FILE_TYPE_UNKNOWN;
    }
    SetLastError(ERROR_SUCCESS);
    if (S_ISREG(status.st_mode))
        return FILE_TYPE_DISK;
    if (S_ISCHR(status.st_mode))
        return FILE_TYPE_CHAR;
    return S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode) ? FILE_TYPE_PIPE : FILE_TYPE_UNKNOWN;
}

BOOL CloseHandle(HANDLE file)
{
    // After EINTR the descriptor is closed all the same.
    return close(DescriptorOf(file)) == 0 || errno == EINTR || Fail(ErrorOf(errno));
}

DWORD GetFileAttributesW(LPCWSTR path)
{
    const CNarrowPath narrow(path);
    if (!narrow.IsValid())
        return INVALID_FILE_ATTRIBUTES;
    struct stat status;
    if (stat(narrow.Get(), &status) != 0) {
        SetLastError(ErrorOf(errno));
        return INVALID_FILE_ATTRIBUTES;
    }
    return S_ISDIR(status.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL;
}

BOOL DeleteFileA(LPCSTR path)
{
    if (!path)
        return Fail(ERROR_INVALID_PARAMETER);
    return unlink(path) == 0 || Fail(ErrorOf(errno));
}
