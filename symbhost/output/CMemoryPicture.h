#pragma once

#include "symbhost/output/PictureStrip.h"

#include <ostream>
#include <string>

// The colour of a box; by the kind of type but for the last two.
enum class BoxColour
{
    Bit,
    Word,
    LongWord,
    Real,
    Text,
    Time,
    Array,
    Structure,
    FunctionBlock,
    Other,
    Free,
    Overlap
};

// One run of bytes in a picture. Texts are UTF-8.
struct PictureBox
{
    std::uint64_t from; // bytes
    std::uint64_t to;   // inclusive
    BoxColour colour;
    std::string label; // inside the box, as far as there is room
    std::string title; // that a browser shows
};

// Draws the memory's blocks below each other as an SVG that follows the reader's light or dark scheme.
class CMemoryPicture
{
public:
    static constexpr std::uint64_t kTop = 92; // where the first strip may begin

    // `height` is what LayOut answered.
    CMemoryPicture(std::ostream& target, const std::string& heading, std::uint64_t height);

    // The heading, the rows and the offsets of the next strip.
    void Begin(const PictureStrip& strip);
    // A box of the strip that was begun last; boxes come from low to high.
    void Add(const PictureBox& box);
    void Finish();

private:
    void DrawLegend();
    void WriteText(double x, double y, const char* style, const std::string& text);

    std::ostream& stream;
    const PictureStrip* strip = nullptr;
    std::size_t segment = 0; // the one that holds the last box
};
