#pragma once

#include "symb/CTraceSink.h"

#include <string>

// Prints the symbol table's messages on standard error as "level 2: text".
// While it collects, messages of the failure level are kept for the caller
// instead: a failed lookup shows its message beside the name.
class CConsoleSink final : public CTraceSink
{
public:
    void Trace(LONG level, LPCSTR text) override;

    // Keeps failure messages from here on.
    void Collect();
    // Ends that and returns them, joined by "; ".
    std::string TakeCollected();

    // Messages received so far, printed or collected.
    std::size_t Count() const { return count; }

private:
    bool collecting = false;
    std::string collected;
    std::size_t count = 0;
};
