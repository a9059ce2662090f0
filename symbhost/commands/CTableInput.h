#pragma once

#include "symbhost/commands/CTextInput.h"

#include <vector>

// Lines of a text, or rows of a table with cells between separators and quotes as in RFC 4180. What is
// longer than kLongestRecord is cut; what follows it is read as ever.
class CTableInput
{
public:
    static constexpr std::size_t kLongestRecord = 65536; // bytes; a path of 16 steps with names of 1023 bytes fits

    struct Record
    {
        std::vector<std::string> cells; // one at least
        bool isTooLong = false;
    };

    explicit CTableInput(std::istream& source) : input(source) {}

    // The next line that is not empty, as one cell; false at the end.
    bool NextLine(Record& record);
    // The next row that is not empty. The first line is the header: it tells the separator, the first of
    // tab, ";" and "," that it holds.
    bool NextRow(Record& record);

private:
    template <class NextCharacter>
    bool ReadRow(Record& record, NextCharacter&& next) const;

    CTextInput input;
    bool hasHeader = false;
    std::optional<char> separator;
};
