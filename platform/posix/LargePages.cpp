#include "platform/win32/LargePages.h"

#include <memory>
#include <sys/mman.h>

void PreferLargePages(void* block, std::size_t bytes) noexcept
{
    constexpr std::size_t kLargePage = std::size_t{2} << 20;
    if (std::align(kLargePage, kLargePage, block, bytes))
        madvise(block, bytes / kLargePage * kLargePage, MADV_HUGEPAGE); // a system without them refuses: no matter
}
