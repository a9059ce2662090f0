#include "symbhost/commands/MapPicture.h"

#include "symbhost/Failure.h"
#include "symbhost/Text.h"
#include "symbhost/output/CMemoryPicture.h"
#include "symbkds/model/ElementaryTypes.h"
#include "symbkds/model/ExportWords.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <utility>

namespace {

constexpr std::size_t kNamesInTitle = 16;
constexpr std::size_t kLongestLabel = 200; // bytes, more than a row holds

BoxColour ColourOf(const Row& variable, const CExportFile& file)
{
    constexpr std::pair<std::string_view, BoxColour> kColours[] = {
        {"BOOL", BoxColour::Bit},      {"EBOOL", BoxColour::Bit},      {"INT", BoxColour::Word},
        {"UINT", BoxColour::Word},     {"WORD", BoxColour::Word},      {"BYTE", BoxColour::Word},
        {"DINT", BoxColour::LongWord}, {"UDINT", BoxColour::LongWord}, {"DWORD", BoxColour::LongWord},
        {"REAL", BoxColour::Real},     {"STRING", BoxColour::Text},    {"WSTRING", BoxColour::Text},
        {"TIME", BoxColour::Time},     {"DATE", BoxColour::Time},      {"TOD", BoxColour::Time},
        {"DT", BoxColour::Time},
    };
    if (const ElementaryType* type = FindElementaryType(variable.typeName, NameCase::Ignored)) {
        const auto* found = std::ranges::find(kColours, type->name, &std::pair<std::string_view, BoxColour>::first);
        return found == std::end(kColours) ? BoxColour::Other : found->second;
    }
    if (const ExportType* type = file.FindType(std::string(variable.typeName)))
        return type->kind == ExportType::Kind::Array           ? BoxColour::Array
               : type->kind == ExportType::Kind::FunctionBlock ? BoxColour::FunctionBlock
                                                               : BoxColour::Structure;
    return IsArrayDeclaration(variable.typeName) ? BoxColour::Array : BoxColour::Other;
}

std::string TitleOf(const MemoryRun& run, const CRowStore& variables)
{
    std::string title = std::to_string(run.block) + ":" + std::to_string(run.from) +
                        (run.to == run.from ? "" : "-" + std::to_string(run.to));
    title += run.state == MemoryRun::State::Free ? " free" : run.state == MemoryRun::State::Overlap ? " overlap" : "";
    for (std::size_t at = 0; at < std::min(run.variables.size(), kNamesInTitle); ++at) {
        const Row row = variables.At(run.variables[at]);
        title += (at == 0 ? " " : ", ") + std::string(row.name) + " (" + std::string(row.typeName) + ")";
    }
    return title + (run.variables.size() > kNamesInTitle ? ", ..." : "");
}

PictureBox BoxOf(const MemoryRun& run, const CRowStore& variables, const CExportFile& file)
{
    PictureBox box{run.from, run.to, BoxColour::Free, {}, TitleOf(run, variables)};
    if (run.variables.empty())
        return box;
    // The smallest of several is the one that the others hold.
    const auto bits = [&variables](std::size_t number) { return PlaceOf(variables.FactsAt(number))->Bits(); };
    const Row inner = variables.At(*std::ranges::min_element(run.variables, {}, bits));
    box.colour = run.state == MemoryRun::State::Overlap ? BoxColour::Overlap : ColourOf(inner, file);
    for (auto number = run.variables.begin(); number != run.variables.end() && box.label.size() < kLongestLabel;
         ++number)
        box.label += (box.label.empty() ? "" : ", ") + std::string(variables.At(*number).name);
    return box;
}

std::vector<PictureStrip> StripsOf(CMemoryMap& memory)
{
    std::vector<PictureStrip> strips;
    for (memory.Rewind(); memory.Next();) {
        const MemoryRun& run = memory.Current();
        if (strips.empty() || strips.back().block != run.block)
            strips.push_back({run.block});
        if (!run.variables.empty())
            strips.back().AddUsed(run.from, run.to);
    }
    return strips;
}

void Draw(MappedProject& project, const CExportFile& file, const std::string& heading, std::ostream& stream)
{
    std::vector<PictureStrip> strips = StripsOf(project.memory);
    const std::uint64_t height = LayOut(strips, CMemoryPicture::kTop);
    CMemoryPicture picture(stream, heading, height);
    auto strip = strips.begin();
    bool isBegun = false;
    for (project.memory.Rewind(); project.memory.Next();) {
        const MemoryRun& run = project.memory.Current();
        if (isBegun && strip->block != run.block) {
            ++strip;
            isBegun = false;
        }
        if (!std::exchange(isBegun, true))
            picture.Begin(*strip);
        picture.Add(BoxOf(run, project.variables, file));
    }
    picture.Finish();
}

} // namespace

void DrawMap(MappedProject& project, const CExportFile& file, const std::string& svgPath, const std::string& exportPath)
{
    const std::string name = std::filesystem::path(exportPath).filename().string();
    std::ofstream stream(svgPath, std::ios::binary);
    if (stream)
        Draw(project, file, "Memory of " + Utf8FromArgument(name), stream);
    stream.close();
    if (!stream)
        throw CHostError("the picture " + svgPath + " cannot be written");
}
