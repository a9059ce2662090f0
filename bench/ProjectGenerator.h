#pragma once

#include <string>

// What the generator puts into a project besides its elementary variables, and
// where the benchmarks find it.
struct GeneratedNames
{
    static constexpr const char* kLongArray = "LONG_ARRAY"; // ARRAY[0..99999] OF INT
    static constexpr int kLongArrayElements = 100'000;
    // The variable of WriteWideProject, a structure of that many members.
    static constexpr const char* kWide = "WIDE";
    static constexpr int kWideMembers = 40'000;

    // The variable of that number: three words, a type that follows from the number.
    static std::string Variable(int number);
    // The member of that number of the wide structure.
    static std::string Member(int number);
    // Whether it is of a type that a plain name resolves to.
    static bool IsPlain(int number);
    // Whether it is a structure; its members SPEED and DRIVE.CURRENT resolve.
    static bool IsStructure(int number);
};

// Writes the export of a plant with that many variables: of ten variables six
// elementary ones, a structure nested two deep, an array of one and one of two
// dimensions and a function block; a long array besides. The texts follow from the seed.
void WriteProject(const std::string& path, int variables, unsigned seed);

// Writes an export with one variable, whose structure has very many members.
void WriteWideProject(const std::string& path, unsigned seed);
