#pragma once

#include <ostream>
#include <string_view>

// Standard output could not be written.
struct OutputError
{
    int error; // errno; EPIPE when the reader went away
};

// Where results are printed. Every write and every flush raises OutputError
// when it fails, so a long listing ends as soon as nobody reads it.
class COutput
{
public:
    explicit COutput(std::ostream& target) : stream(target) {}

    void Write(std::string_view text);
    // The text and a line end.
    void Line(std::string_view text);
    void Flush();

private:
    void Check();

    std::ostream& stream;
};
