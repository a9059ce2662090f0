#include "platform/posix/SharedLibrary.h"

#include <cstdint>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <link.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

template <class Record>
bool ReadAt(int file, std::uint64_t offset, Record& record) noexcept
{
    return pread(file, &record, sizeof record, static_cast<off_t>(offset)) == sizeof record;
}

// Whether a file of so many bytes holds all that is to be loaded from it. Whether it can be loaded at all is left to
// dlopen.
bool HoldsItsSegments(int file, std::uint64_t fileBytes) noexcept
{
    ElfW(Ehdr) header;
    if (!ReadAt(file, 0, header))
        return false;
    for (unsigned i = 0; i < header.e_phnum; ++i) {
        ElfW(Phdr) segment;
        if (!ReadAt(file, header.e_phoff + i * sizeof segment, segment))
            return false;
        const bool fits = segment.p_offset <= fileBytes && segment.p_filesz <= fileBytes - segment.p_offset;
        if (segment.p_type == PT_LOAD && !fits)
            return false;
    }
    return true;
}

} // namespace

bool IsWholeFile(const char* path) noexcept
{
    const int file = open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return false;
    struct stat status;
    const bool isWhole = fstat(file, &status) == 0 && S_ISREG(status.st_mode) &&
                         HoldsItsSegments(file, static_cast<std::uint64_t>(status.st_size));
    close(file);
    return isWhole;
}

void* OpenSharedLibrary(const char* path) noexcept
{
    const bool isBareName = !std::strchr(path, '/');
    return isBareName || IsWholeFile(path) ? dlopen(path, RTLD_NOW | RTLD_LOCAL) : nullptr;
}
