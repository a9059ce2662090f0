#pragma once

#include <string>
#include <vector>

// The arguments of the program as the library for command lines takes them right.
class CArguments
{
public:
    CArguments(int argc, const char* const* argv);

    // What is in front of "--", the program's name first.
    const std::vector<const char*>& Parsed() const { return parsed; }
    // What follows "--": nothing of it is an option.
    const std::vector<std::string>& Rest() const { return rest; }
    // The first option such as "--pattern=" that has no value behind its "="; empty when there is none.
    std::string WithoutValue() const;

private:
    std::vector<const char*> parsed;
    std::vector<std::string> rest;
};
