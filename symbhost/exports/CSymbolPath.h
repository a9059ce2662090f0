#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// A name as a lookup takes it apart: a variable, the steps below it and perhaps a bit.
class CSymbolPath
{
public:
    explicit CSymbolPath(const std::string& name);

    // Whether the name can be taken apart; nothing else means anything if not.
    bool IsPath() const { return isPath; }
    // The variable and the steps below it; one at least.
    std::size_t StepCount() const { return ends.size(); }
    // The path up to a step, the first being 0, without the bit.
    std::string Prefix(std::size_t step) const { return text.substr(0, ends[step]); }
    // A name, or an index with its brackets.
    std::string Step(std::size_t step) const;
    bool IsIndex(std::size_t step) const { return step > 0 && text[ends[step - 1]] == '['; }
    const std::optional<std::string>& Bit() const { return bit; }

private:
    bool isPath;
    std::string text; // without the bit
    std::vector<std::size_t> ends;
    std::optional<std::string> bit;
};

// A path as someone types it: a dot or an open bracket at its end is taken off and an index closed, because names
// that are built from it would not resolve.
std::string MendedPath(std::string path);
