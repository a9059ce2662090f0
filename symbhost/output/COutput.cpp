#include "symbhost/output/COutput.h"

#include <cerrno>

void COutput::Write(std::string_view text)
{
    stream << text;
    Check();
}

void COutput::Line(std::string_view text)
{
    stream << text << '\n';
    Check();
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
