// Names that look like a mistyped one.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// Collects of the names it is shown those that are nearest to `wanted` by edit distance in any case, at
// most three of them and none that differs in more than a third of it.
class CNearestNames
{
public:
    explicit CNearestNames(std::string_view wanted);

    void Show(std::string_view name);
    // From the nearest on.
    std::vector<std::string> Names() const;

private:
    struct Candidate
    {
        std::size_t distance;
        std::string name;
    };

    std::size_t DistanceTo(std::string_view name);

    std::string upperWanted;
    std::size_t farthest;
    std::vector<Candidate> nearest;
    std::vector<std::size_t> distances; // of one row of the comparison
};

// "A, B, C"; the first `most` of them and how many more there are.
std::string JoinNames(const std::vector<std::string>& names, std::size_t most);
