#include "symbhost/output/CMemoryPicture.h"

#include "symbhost/Text.h"

#include <algorithm>

namespace {

constexpr std::uint64_t kLeft = 90; // room for the offsets
constexpr std::uint64_t kWidth = 1024;
constexpr std::uint64_t kMargin = 16;
constexpr std::uint64_t kBoxHeight = 16;
constexpr double kLetterWidth = 6.1;
constexpr double kNarrowestBox = 0.5;
constexpr double kLabelMargin = 6;

// clang-format off
struct Colour { const char* name; const char* light; const char* dark; const char* meaning; };
constexpr Colour kColours[] = {
    {"bit",       "#ffc078", "#8a5412", "BOOL, EBOOL"},
    {"word",      "#a5d8ff", "#1b4f86", "INT, UINT, WORD, BYTE"},
    {"long",      "#74c0fc", "#1a6fb0", "DINT, UDINT, DWORD"},
    {"real",      "#a9e9b4", "#256b36", "REAL"},
    {"text",      "#eebefa", "#7a3b8b", "STRING, WSTRING"},
    {"time",      "#ffe066", "#766210", "TIME, DATE, TOD, DT"},
    {"array",     "#88e0ea", "#11656f", "array"},
    {"structure", "#d0bfff", "#523da0", "structure"},
    {"block",     "#e6cdb5", "#6d4a2c", "function block"},
    {"other",     "#ced4da", "#525a63", "other"},
    {"free",      "#eceff2", "#1c2128", "free"},
    {"overlap",   "#f03e3e", "#d6282c", "overlap"},
};
// clang-format on

const Colour& ColourOf(BoxColour colour)
{
    return kColours[static_cast<std::size_t>(colour)];
}

// For element content and attribute values; what XML cannot hold becomes U+FFFD or an escape.
std::string XmlText(const std::string& text)
{
    constexpr std::string_view kNoCharacters = "\xEF\xBF\xBE\xEF\xBF\xBF";
    std::string xml;
    for (const char c : Printable(text)) {
        if (c == '&')
            xml += "&amp;";
        else if (c == '<')
            xml += "&lt;";
        else if (c == '>')
            xml += "&gt;";
        else
            xml += c;
        const bool isNoCharacter = xml.ends_with(kNoCharacters.substr(0, 3)) || xml.ends_with(kNoCharacters.substr(3));
        if (isNoCharacter)
            xml.back() = '\xBD';
    }
    return xml;
}

// `text` cut to `letters` characters; empty when there is no room for a few.
std::string Shortened(const std::string& text, std::size_t letters)
{
    constexpr std::size_t kFewest = 4;
    std::string shown = Printable(text);
    if (DisplayWidth(shown) <= letters)
        return shown;
    if (letters < kFewest)
        return {};
    std::size_t bytes = 0;
    for (std::size_t taken = 0; taken + 1 < letters; ++taken)
        do
            ++bytes;
        while ((static_cast<unsigned char>(shown[bytes]) & 0xC0U) == 0x80);
    return shown.substr(0, bytes) + "…";
}

std::string Grouped(std::uint64_t number)
{
    std::string text = std::to_string(number);
    for (std::size_t at = text.size(); at > 3; at -= 3)
        text.insert(at - 3, ",");
    return text;
}

// Coordinates to a twentieth: short, and exact enough for a screen.
std::string Length(double value)
{
    const auto hundredths = static_cast<std::uint64_t>(value * 100);
    const std::string fraction = std::to_string(hundredths % 100);
    return std::to_string(hundredths / 100) +
           (hundredths % 100 == 0 ? "" : (fraction.size() == 1 ? ".0" : ".") + fraction);
}

} // namespace

CMemoryPicture::CMemoryPicture(std::ostream& target, const std::string& heading, std::uint64_t height) : stream(target)
{
    constexpr std::uint64_t kFullWidth = kLeft + kWidth + kMargin;
    stream << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " << kFullWidth << ' ' << height + kMargin
           << "\" width=\"" << kFullWidth << "\" height=\"" << height + kMargin << "\">\n"
           << "<title>" << XmlText(heading) << "</title>\n<style>\n";
    const auto scheme = [this](const char* page, const char* ink, const char* dim, const char* Colour::*fill) {
        stream << ".page{fill:" << page << "}path,.sample{stroke:" << page << "}text{fill:" << ink
               << "}.dim{fill:" << dim << "}";
        for (const Colour& colour : kColours)
            stream << '.' << colour.name << "{fill:" << colour.*fill << '}';
    };
    stream << "text{font:11px sans-serif}.heading{font-size:15px}.strip{font-size:13px;font-weight:bold}"
           << ".right{text-anchor:end}.label{font-size:10px;pointer-events:none}path,.sample{stroke-width:.6}"
           << "path:hover{opacity:.75}\n";
    scheme("#ffffff", "#1b1f24", "#57606a", &Colour::light);
    stream << "\n@media (prefers-color-scheme: dark){";
    scheme("#0d1117", "#e6edf3", "#9aa4af", &Colour::dark);
    stream << "}\n</style>\n<rect class=\"page\" width=\"100%\" height=\"100%\"/>\n";
    WriteText(kMargin, 26, "heading", heading);
    DrawLegend();
}

void CMemoryPicture::DrawLegend()
{
    constexpr std::size_t kColumns = 6;
    constexpr double kColumnWidth = 180;
    for (std::size_t at = 0; at < std::size(kColours); ++at) {
        const double x = kMargin + kColumnWidth * static_cast<double>(at % kColumns);
        const std::size_t row = at / kColumns;
        const double y = 40 + 20 * static_cast<double>(row);
        stream << "<rect class=\"sample " << kColours[at].name << "\" x=\"" << Length(x) << "\" y=\"" << Length(y)
               << "\" width=\"14\" height=\"14\"/>";
        WriteText(x + 20, y + 11, "legend", kColours[at].meaning);
    }
}

void CMemoryPicture::WriteText(double x, double y, const char* style, const std::string& text)
{
    stream << "<text class=\"" << style << "\" x=\"" << Length(x) << "\" y=\"" << Length(y) << "\">" << XmlText(text)
           << "</text>\n";
}

void CMemoryPicture::Begin(const PictureStrip& begun)
{
    strip = &begun;
    segment = 0;
    WriteText(kMargin, static_cast<double>(strip->y) + 16, "strip",
              "Block " + std::to_string(strip->block) + ": " + Grouped(strip->usedBytes) + " bytes used, " +
                  Grouped(strip->bytesPerRow) + " in a row");
    for (const PictureSegment& shown : strip->segments) {
        const std::uint64_t rows = strip->RowsOf(shown);
        const std::uint64_t firstOffset = shown.from / strip->bytesPerRow * strip->bytesPerRow;
        for (std::uint64_t row = 0; row < rows; ++row)
            WriteText(kLeft - 8, static_cast<double>(shown.y + row * kRowHeight) + 12, "dim right",
                      Grouped(firstOffset + row * strip->bytesPerRow));
        if (&shown != &strip->segments.back())
            WriteText(kLeft, static_cast<double>(shown.y + rows * kRowHeight) + 12, "dim",
                      "⋮ " + Grouped((&shown)[1].from - shown.to - 1) + " bytes free");
    }
}

void CMemoryPicture::Add(const PictureBox& box)
{
    const std::vector<PictureSegment>& segments = strip->segments;
    while (segment < segments.size() && segments[segment].to < box.from)
        ++segment;
    if (segment == segments.size() || box.from < segments[segment].from)
        return; // a wide gap
    const PictureSegment& shown = segments[segment];
    const std::uint64_t perRow = strip->bytesPerRow;
    const double scale = static_cast<double>(kWidth) / static_cast<double>(perRow);
    const std::uint64_t firstRow = box.from / perRow;
    struct
    {
        double x, y, width;
    } widest{};
    stream << "<path class=\"" << ColourOf(box.colour).name << "\" d=\"";
    for (std::uint64_t row = firstRow; row <= box.to / perRow; ++row) {
        const std::uint64_t from = std::max(box.from, row * perRow);
        const std::uint64_t behind = std::min(box.to, row * perRow + perRow - 1) + 1;
        const double x = kLeft + static_cast<double>(from - row * perRow) * scale;
        const std::uint64_t rowsAbove = row - shown.from / perRow;
        const double y = static_cast<double>(shown.y + rowsAbove * kRowHeight);
        const double width = std::max(static_cast<double>(behind - from) * scale, kNarrowestBox);
        stream << 'M' << Length(x) << ' ' << Length(y) << 'h' << Length(width) << 'v' << kBoxHeight << "H" << Length(x)
               << 'z';
        if (width > widest.width)
            widest = {x, y, width};
    }
    stream << "\"><title>" << XmlText(box.title) << "</title></path>\n";
    if (widest.width <= kLabelMargin)
        return;
    const auto letters = static_cast<std::size_t>((widest.width - kLabelMargin) / kLetterWidth);
    if (const std::string label = Shortened(box.label, letters); !label.empty())
        WriteText(widest.x + 3, widest.y + 12, "label", label);
}

void CMemoryPicture::Finish()
{
    stream << "</svg>\n";
}
