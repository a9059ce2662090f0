#include "symbhost/Failure.h"

#include "symbhost/Text.h"

#include <iostream>

void Complain(std::string_view text)
{
    std::cerr << "symbhost: " << Printable(text) << '\n' << std::flush;
}
