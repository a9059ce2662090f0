// Where the bytes of a block stand in a picture.
#pragma once

#include <cstdint>
#include <vector>

// Bytes without a wide gap between them.
struct PictureSegment
{
    std::uint64_t from; // bytes
    std::uint64_t to;   // inclusive
    std::uint64_t y = 0;
};

// A block: rows of equally many bytes, segment by segment.
struct PictureStrip
{
    static constexpr std::uint64_t kWidestGap = 4096; // bytes; the strip is broken at a wider one

    unsigned block = 0;
    std::vector<PictureSegment> segments = {};
    std::uint64_t usedBytes = 0;
    std::uint64_t bytesPerRow = 0;
    std::uint64_t y = 0; // of the strip's heading

    // Adds bytes that lie behind those that were added before.
    void AddUsed(std::uint64_t from, std::uint64_t to);
    std::uint64_t RowsOf(const PictureSegment& segment) const
    {
        return segment.to / bytesPerRow - segment.from / bytesPerRow + 1;
    }
};

// Heights in the picture's units.
constexpr std::uint64_t kRowHeight = 19;
constexpr std::uint64_t kBreakHeight = 22; // between segments

// Gives the strips their scales and heights from `y` on. Answers the height below the last one.
std::uint64_t LayOut(std::vector<PictureStrip>& strips, std::uint64_t y);
