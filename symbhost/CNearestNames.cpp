#include "symbhost/CNearestNames.h"

#include "symbhost/exports/UpperName.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

constexpr std::size_t kMostNames = 3;
constexpr std::size_t kLongestName = 200; // bytes; nobody mistypes a longer one in a few places

} // namespace

CNearestNames::CNearestNames(std::string_view wanted)
    : upperWanted(UpperName(std::string(wanted))), farthest(std::max<std::size_t>(1, wanted.size() / 3))
{}

void CNearestNames::Show(std::string_view name)
{
    const std::size_t longer = std::max(name.size(), upperWanted.size());
    if (longer > kLongestName || longer - std::min(name.size(), upperWanted.size()) > farthest)
        return;
    const std::size_t distance = DistanceTo(name);
    if (distance > farthest)
        return;
    const auto place = std::ranges::upper_bound(nearest, distance, {}, &Candidate::distance);
    nearest.insert(place, {distance, std::string(name)});
    if (nearest.size() > kMostNames) {
        nearest.pop_back();
        farthest = nearest.back().distance;
    }
}

// The changes of one byte that make one name of the other.
std::size_t CNearestNames::DistanceTo(std::string_view name)
{
    distances.resize(upperWanted.size() + 1);
    std::iota(distances.begin(), distances.end(), std::size_t{0});
    for (std::size_t row = 1; row <= name.size(); ++row) {
        std::size_t diagonal = std::exchange(distances[0], row);
        std::size_t least = row;
        for (std::size_t at = 1; at < distances.size(); ++at) {
            const std::size_t replaced = diagonal + (upperWanted[at - 1] == Upper(name[row - 1]) ? 0 : 1);
            diagonal = distances[at];
            distances[at] = std::min({replaced, distances[at] + 1, distances[at - 1] + 1});
            least = std::min(least, distances[at]);
        }
        if (least > farthest)
            return least;
    }
    return distances.back();
}

std::vector<std::string> CNearestNames::Names() const
{
    std::vector<std::string> names;
    for (const Candidate& candidate : nearest)
        names.push_back(candidate.name);
    return names;
}

std::string JoinNames(const std::vector<std::string>& names, std::size_t most)
{
    std::string joined;
    for (std::size_t at = 0; at < std::min(names.size(), most); ++at)
        joined += (at == 0 ? "" : ", ") + names[at];
    if (names.size() > most)
        joined += " and " + std::to_string(names.size() - most) + " more";
    return joined;
}
