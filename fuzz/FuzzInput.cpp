#include "FuzzInput.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

// Read by the address sanitizer when it starts: the host's view of an array looks at the count in front of it.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options()
{
    return "poison_array_cookie=0";
}

std::string CFuzzLines::Take()
{
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    std::string line(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return line;
}

CFuzzRandom::CFuzzRandom(std::string_view seed) : state(0xCBF29CE484222325)
{
    for (const char byte : seed)
        state = (state ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
}

std::uint32_t CFuzzRandom::Below(std::uint32_t limit)
{
    state = state * 6364136223846793005 + 1442695040888963407;
    return static_cast<std::uint32_t>(state >> 33) % limit;
}

std::string CFuzzRandom::Mutated(std::string text)
{
    constexpr std::string_view kBytes = "[].,-0123456789*%!| aZ\xC3\xFF";
    for (std::uint32_t left = 1 + Below(3); left > 0; --left) {
        const std::size_t at = Below(static_cast<std::uint32_t>(text.size() + 1));
        const char byte = kBytes[Below(kBytes.size())];
        switch (Below(4)) {
        case 0:
            text.insert(at, 1, byte);
            break;
        case 1:
            text.insert(at, text.substr(at / 2, at));
            break;
        case 2:
            text.erase(at, 1 + Below(3));
            break;
        default:
            text.replace(at, at < text.size(), 1, byte);
        }
    }
    return text;
}

void Require(bool holds, const char* what, std::string_view where)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s: %.*s\n", what, static_cast<int>(where.size()), where.data());
    std::abort();
}
