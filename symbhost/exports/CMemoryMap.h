#pragma once

#include "symbhost/exports/Place.h"

#include <map>
#include <set>
#include <vector>

// Neighbouring bytes on which the same variables lie.
struct MemoryRun
{
    enum class State
    {
        Used,
        Free,   // between variables
        Overlap // shared by variables that share some of their bytes only, or the same bit
    };

    // No run names more variables than these, so that a damaged export does not make rows without end.
    static constexpr std::size_t kMostVariables = 256;

    WORD block = 0;
    std::uint64_t from = 0; // bytes
    std::uint64_t to = 0;   // inclusive
    State state = State::Free;
    std::vector<std::size_t> variables; // as they were added
    bool isCut = false;                 // there are more of them

    std::uint64_t Bytes() const { return to - from + 1; }
};

// Goes through the memory that variables lie on, block by block and byte by byte upward.
class CMemoryMap
{
public:
    // Variables count from 0. The last one comes before the first run is asked for.
    void Add(const Place& place) { variables.push_back({place, variables.size()}); }

    // Steps to the next run; false at the end.
    bool Next();
    const MemoryRun& Current() const { return run; }
    // From the first again.
    void Rewind();

private:
    struct Variable
    {
        Place place;
        std::size_t number;
    };

    void Sort();
    // The variables that begin at the byte `from` of the run's block lie on it from now on.
    void Begin(std::uint64_t from);
    void NoteSharing(std::uint64_t from);
    void EndBefore(std::uint64_t from);
    bool HasNextInBlock() const;

    std::vector<Variable> variables; // sorted by block and first byte
    bool isSorted = false;
    std::size_t next = 0;                          // the first variable that did not begin yet
    std::set<std::size_t> present;                 // numbers of those that lie on the current byte
    std::multimap<std::uint64_t, std::size_t> end; // their last bytes
    std::uint64_t sharedUntil = 0;                 // up to this byte an overlap reaches
    bool isShared = false;
    MemoryRun run;
};
