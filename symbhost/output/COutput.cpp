#include "symbhost/output/COutput.h"

#include <cerrno>

void COutput::Write(std::string_view text)
{
    stream.write(text.data(), static_cast<std::streamsize>(text.size()));
    written.fetch_add(text.size(), std::memory_order_relaxed);
    Check();
}

void COutput::Line(std::string_view text)
{
    Write(text);
    Write("\n");
}

void COutput::Flush()
{
    stream.flush();
    Check();
}

void COutput::Check()
{
    if (!stream)
        throw OutputError{errno};
}
