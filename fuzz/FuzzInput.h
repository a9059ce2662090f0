// What the fuzzers have in common.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// The lines of an input, one after the other; empty ones once it is used up. A line ends at its first null byte for
// whoever takes it as a text.
class CFuzzLines
{
public:
    CFuzzLines(const std::uint8_t* data, std::size_t size) : rest(reinterpret_cast<const char*>(data), size) {}

    bool IsAtEnd() const { return rest.empty(); }
    std::string Take();

private:
    std::string_view rest;
};

// A reproducible stream of numbers and texts drawn from an input.
class CFuzzRandom
{
public:
    explicit CFuzzRandom(std::string_view seed);

    std::uint32_t Below(std::uint32_t limit);
    // The text with a few bytes replaced, put in, taken out or repeated.
    std::string Mutated(std::string text);

private:
    std::uint64_t state;
};

// Ends the program with a line that says what does not hold, which libFuzzer takes for a finding.
void Require(bool holds, const char* what, std::string_view where);
