#include "symbhost/plugin/DumpFile.h"

#include "platform/mfc/CFileHandle.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view kFirstLine = "QUICK SAVE KDV V1.0 ";
constexpr std::string_view kLastLine = "QUICK SAVE DICO V1.0 END OF FILE ";
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kKept = 256; // bytes, more than either line has

struct FileEnds
{
    std::string head; // at most kKept bytes each; they overlap in a short file
    std::string tail;
};

// Nothing when the file cannot be read.
std::optional<FileEnds> ReadEnds(const std::string& path)
{
    const CFileHandle file(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                       FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen() || GetFileType(file.Get()) != FILE_TYPE_DISK)
        return std::nullopt;
    FileEnds ends;
    std::vector<char> buffer(64 * 1024);
    for (DWORD done = 0;;) {
        if (!ReadFile(file.Get(), buffer.data(), static_cast<DWORD>(buffer.size()), &done, nullptr))
            return std::nullopt;
        if (done == 0)
            return ends;
        const std::string_view block(buffer.data(), done);
        ends.head += block.substr(0, kKept - ends.head.size());
        ends.tail += block.substr(block.size() - std::min(block.size(), kKept));
        ends.tail.erase(0, ends.tail.size() - std::min(ends.tail.size(), kKept));
    }
}

// The tick count that ends `line`, in hexadecimal and perhaps with a blank behind it.
std::optional<DWORD> TrailingTick(std::string_view line)
{
    line = line.substr(0, line.find_last_not_of(' ') + 1);
    const std::string_view digits = line.substr(line.rfind(' ') + 1);
    DWORD tick = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), tick, 16);
    if (error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return tick;
}

bool IsBegunBetween(const std::string& head, DWORD earliestTick, DWORD latestTick)
{
    const std::string_view line = std::string_view(head).substr(0, head.find(kLineEnd));
    const std::optional<DWORD> tick = line.starts_with(kFirstLine) ? TrailingTick(line) : std::nullopt;
    return tick && *tick - earliestTick <= latestTick - earliestTick; // modulo 2^32, as the count itself
}

bool IsComplete(std::string_view tail)
{
    if (!tail.ends_with(kLineEnd))
        return false;
    tail.remove_suffix(kLineEnd.size());
    const std::string_view line = tail.substr(tail.rfind('\n') + 1);
    return line.starts_with(kLastLine) && TrailingTick(line);
}

} // namespace

std::string DumpPath(const std::string& dumpDir, const std::string& exportPath)
{
    std::string name = exportPath;
    for (const char special : {':', '\\', kPathSeparator})
        std::replace(name.begin(), name.end(), special, '_');
    const bool isJoined = dumpDir.ends_with(kPathSeparator);
    return dumpDir + (isJoined ? "" : std::string(1, kPathSeparator)) + name + ".log";
}

std::string DumpProblem(const std::string& path, DWORD earliestTick, DWORD latestTick)
{
    const std::optional<FileEnds> ends = ReadEnds(path);
    if (!ends)
        return "no dump was written to " + path;
    if (!IsBegunBetween(ends->head, earliestTick, latestTick))
        return "the dump at " + path + " is an older one";
    return IsComplete(ends->tail) ? "" : "the dump at " + path + " is not complete";
}
