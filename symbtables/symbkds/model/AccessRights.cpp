#include "symbkds/model/AccessRights.h"

std::uint16_t AccessRightsFrom(std::int32_t requested)
{
    constexpr std::uint16_t kRead = 1;
    constexpr std::uint16_t kWrite = 2;
    switch (requested) {
    case 1:
        return kRead;
    case 2:
        return kReadWrite;
    case 3:
        return kWrite;
    default:
        return 0;
    }
}
