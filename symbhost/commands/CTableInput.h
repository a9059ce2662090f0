#pragma once

#include "symbhost/commands/CTextInput.h"

#include <string_view>
#include <vector>

// Lines of a text, or rows of a table with cells between separators and quotes as in RFC 4180. What is longer than
// kLongestRecord is cut. Quotes around a line end that no quote right before a separator or line end closes, or that
// hold too much, end with their first line; what follows is read as ever.
class CTableInput
{
public:
    static constexpr std::size_t kLongestRecord = 65536; // bytes; a path of 16 steps with names of 1023 bytes fits

    struct Record
    {
        std::vector<std::string> cells; // one at least
        std::string_view fault = {};    // why it cannot be used; empty: it can
    };

    explicit CTableInput(std::istream& source) : input(source) {}

    // The next line that is not empty, as one cell; false at the end.
    bool NextLine(Record& record);
    // The next row that is not empty. The first line is the header: it tells the separator, the first of
    // tab, ";" and "," that it holds.
    bool NextRow(Record& record);

private:
    std::optional<char> NextCharacter();
    // The next characters are those of `text`.
    void PutBack(const std::string& text);
    bool ReadRow(Record& record);

    CTextInput input;
    std::string again; // characters that were put back, from `handedOut` on
    std::size_t handedOut = 0;
    bool hasHeader = false;
    std::optional<char> separator;
};
