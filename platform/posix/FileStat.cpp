#include "platform/win32/FileStat.h"

#include <utility>

int _stat32(LPCSTR path, struct _stat32* status)
{
    if (!path || !status) {
        errno = EINVAL;
        return -1;
    }
    struct stat native;
    if (stat(path, &native) != 0)
        return -1;
    const std::int64_t seconds = native.st_mtim.tv_sec;
    status->st_mtime = std::in_range<std::int32_t>(seconds) ? static_cast<std::int32_t>(seconds) : -1;
    return 0;
}
