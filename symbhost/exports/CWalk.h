#pragma once

#include "symbhost/exports/CProject.h"

#include <limits>
#include <string>
#include <vector>

struct WalkOptions
{
    // So many are looked at where an export with more would cost too much time.
    static constexpr std::size_t kMostSymbols = 10'000'000;

    std::optional<std::string> path; // below which to walk; none: all variables
    bool branches = false;
    DWORD elements = 0;                                         // at most so many of each dimension; 0: all
    bool below = true;                                          // not only the variables themselves
    std::size_t most = std::numeric_limits<std::size_t>::max(); // symbols, yielded or not
    bool allVariables = false;                                  // however many; then `most` is for what is below them
};

// What a walk left out.
struct WalkCut
{
    std::size_t count = 0;
    std::string first;      // the first symbol below which something is missing
    std::string why;        // of that one
    bool isStopped = false; // there are more symbols than `most`
};

// Walks depth first in listing order over what a host is listed, and looks each symbol up but variables with members
// that are not yielded.
//
// Yields leaves, with `branches` what has members too; of a path, then, the path itself first. Does not go
// into a type that stands above itself. One page of each level is in memory at a time.
class CWalk
{
public:
    CWalk(const CProject& walked, const WalkOptions& wanted);

    // Whether the path leads to something.
    bool IsFound() const { return isFound; }
    // Steps to the next symbol; false at the end. Passes CMemoryException on.
    bool Next();
    // The symbol; its texts are valid until the next step.
    const Row& Current() const { return row; }
    const WalkCut& Cut() const { return cut; }

private:
    struct Level
    {
        CListing listing;
        std::string path;
        std::optional<std::string> upperType; // of what is listed; empty: not known, nothing: not read
        std::vector<ListingEntry> page = {};
        std::size_t position = 0; // in the page
        std::size_t entries = 0;  // seen so far
    };

    void Begin(const std::string& path);
    // The entry of the path in the listing above it, where neither a lookup nor a listing of its own answers.
    const ListingEntry* FindAbove(const std::string& path, std::vector<ListingEntry>& page) const;
    // Whether what is listed under the path, of which `root` is the variable, cannot be looked up. A member that can
    // goes before a variable of its path.
    bool IsOutOfReach(const std::string& path) const;
    void Visit(const ListingEntry& entry);
    // For a variable with members that is not yielded. A lookup of it never answers, so none is made; its type is read
    // when members need it.
    void Pass();
    const std::string& TypeOf(Level& level);
    // Whether what is listed now is, or is inside, something of this type.
    bool StandsAbove(const std::optional<std::string>& type);
    // The answer for a symbol itself: that for another one, under a name out of reach, is a failure.
    LookupAnswer LookUp(const std::string& symbol, bool isUnreachable) const;
    // Fills `row` with the answer of a lookup; the facts of a variable that is not served come from the export.
    void Describe(const ListingEntry& entry, const std::string& parentType, LookupAnswer&& looked);
    void SetReason(const ListingEntry& entry, bool hasUnknownType);
    // Starts to list below the symbol that was described or passed last; false when its type is not known.
    bool Enter(const std::string& symbol);
    // Leaves out what is left, because `most` symbols were visited.
    void Stop();
    // Ends the level that lists last.
    void Leave();
    void NoteCut(const std::string& symbol, const std::string& why);

    const CProject& project;
    WalkOptions options;
    std::vector<Level> levels;
    bool isFound = true;
    bool hasRow = false; // `row` is to be yielded
    std::size_t visited = 0;
    Row row;
    LookupAnswer answer{};                // holds the row's texts
    std::optional<CProject::Root> root;   // or this does
    std::optional<std::string> upperType; // of the row; nothing: not read
    WalkCut cut;
};
