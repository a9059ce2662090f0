#pragma once

#include <atomic>
#include <cstdint>
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
    // `terminalColumns`: the width of the terminal that `target` is; 0: it is none.
    explicit COutput(std::ostream& target, std::size_t terminalColumns = 0) : stream(target), columns(terminalColumns)
    {}

    bool IsTerminal() const { return columns != 0; }
    std::size_t Columns() const { return columns; }
    // So far; any thread may ask.
    std::uint64_t WrittenBytes() const { return written.load(std::memory_order_relaxed); }

    void Write(std::string_view text);
    // The text and a line end.
    void Line(std::string_view text);
    void Flush();

private:
    void Check();

    std::ostream& stream;
    std::size_t columns;
    std::atomic<std::uint64_t> written = 0;
};
