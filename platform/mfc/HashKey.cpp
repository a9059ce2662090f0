#include "platform/mfc/CMap.h"

#include <bit>
#include <chrono>
#include <exception>
#include <random>
#include <string_view>

namespace {

struct Seed
{
    std::uint64_t low;
    std::uint64_t high;
};

Seed MakeSeed() noexcept
{
    try {
        std::random_device source;
        const auto next = [&source] { return std::uint64_t{source()} << 32 | source(); };
        return {next(), next()};
    } catch (const std::exception&) {
        // Without a source of randomness the clock and the place of the stack must do.
        const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
        return {static_cast<std::uint64_t>(ticks), reinterpret_cast<std::uintptr_t>(&ticks)};
    }
}

// SipHash with one round a word and three at the end: without the seed nobody
// can tell which keys collide, and short keys cost a few nanoseconds.
class CSipState
{
public:
    explicit CSipState(const Seed& seed) noexcept
        : v0(seed.low ^ 0x736F6D6570736575U), v1(seed.high ^ 0x646F72616E646F6DU), v2(seed.low ^ 0x6C7967656E657261U),
          v3(seed.high ^ 0x7465646279746573U)
    {}

    void Add(std::uint64_t word) noexcept
    {
        v3 ^= word;
        Round();
        v0 ^= word;
    }

    std::uint64_t Finish() noexcept
    {
        v2 ^= 0xFF;
        Round();
        Round();
        Round();
        return v0 ^ v1 ^ v2 ^ v3;
    }

private:
    void Round() noexcept
    {
        v0 += v1;
        v2 += v3;
        v1 = std::rotl(v1, 13) ^ v0;
        v3 = std::rotl(v3, 16) ^ v2;
        v0 = std::rotl(v0, 32);
        v2 += v1;
        v0 += v3;
        v1 = std::rotl(v1, 17) ^ v2;
        v3 = std::rotl(v3, 21) ^ v0;
        v2 = std::rotl(v2, 32);
    }

    std::uint64_t v0, v1, v2, v3;
};

} // namespace

std::uint32_t HashKey(LPCSTR key) noexcept
{
    static const Seed seed = MakeSeed(); // also ready for the constructors of other libraries

    const std::string_view text = key ? key : "";
    CSipState state(seed);
    std::size_t at = 0;
    std::uint64_t word;
    for (; text.size() - at >= sizeof word; at += sizeof word) {
        std::memcpy(&word, text.data() + at, sizeof word);
        state.Add(word);
    }
    word = std::uint64_t{text.size()} << 56;
    std::memcpy(&word, text.data() + at, text.size() - at); // the length stays in the top byte
    state.Add(word);
    const std::uint64_t hash = state.Finish();
    return static_cast<std::uint32_t>(hash ^ hash >> 32);
}
