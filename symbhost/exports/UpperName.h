// Names are the same in any case of a to z.
#pragma once

#include "platform/mfc/UpperCase.h"

#include <algorithm>
#include <functional>
#include <string>

inline std::string UpperName(std::string name)
{
    std::ranges::transform(name, name.begin(), Upper);
    return name;
}

inline std::size_t HashOf(const std::string& upperName)
{
    return std::hash<std::string>()(upperName);
}
