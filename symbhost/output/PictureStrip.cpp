#include "symbhost/output/PictureStrip.h"

#include <numeric>

namespace {

constexpr std::uint64_t kFewestBytesPerRow = 64;
constexpr std::uint64_t kMostRows = 128; // of a block, unless it has more segments
constexpr std::uint64_t kHeadingHeight = 26;
constexpr std::uint64_t kStripGap = 18;

std::uint64_t RowsOf(const PictureStrip& strip)
{
    return std::accumulate(
        strip.segments.begin(), strip.segments.end(), std::uint64_t{0},
        [&strip](std::uint64_t rows, const PictureSegment& segment) { return rows + strip.RowsOf(segment); });
}

void ChooseScale(PictureStrip& strip)
{
    const std::uint64_t fewestRows = strip.segments.size();
    strip.bytesPerRow = kFewestBytesPerRow;
    // A segment may lie across the border of two rows at any scale.
    while (RowsOf(strip) > kMostRows + 2 * fewestRows)
        strip.bytesPerRow *= 2;
}

} // namespace

void PictureStrip::AddUsed(std::uint64_t from, std::uint64_t to)
{
    usedBytes += to - from + 1;
    if (!segments.empty() && from - segments.back().to - 1 <= kWidestGap)
        segments.back().to = to;
    else
        segments.push_back({from, to});
}

std::uint64_t LayOut(std::vector<PictureStrip>& strips, std::uint64_t y)
{
    for (PictureStrip& strip : strips) {
        ChooseScale(strip);
        strip.y = y;
        y += kHeadingHeight;
        for (PictureSegment& segment : strip.segments) {
            segment.y = y;
            y += strip.RowsOf(segment) * kRowHeight + kBreakHeight;
        }
        y += kStripGap - kBreakHeight;
    }
    return y;
}
