#include "bench/LoadProcess.h"

#include "bench/CSamples.h"
#include "bench/CountedHeap.h"
#include "bench/Projects.h"

#include <pugixml.hpp>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string_view>

namespace {

constexpr std::string_view kLoadArgument = "--load";

std::int64_t PeakBytes()
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (word == "VmHWM:") {
            std::int64_t kilobytes = 0;
            status >> kilobytes;
            return kilobytes * 1024;
        }
    return 0;
}

void Parse(const char* path, CSamples& seconds)
{
    pugi::xml_document document;
    bool parsed = false;
    seconds.Measure([&] { parsed = static_cast<bool>(document.load_file(path)); });
    if (!parsed)
        throw std::runtime_error("the export cannot be parsed");
}

void Init(CSymb* table, const char* path, const char* dumpFolder, CSamples& seconds)
{
    LONG result = -1;
    seconds.Measure([&] { result = table->Init(path, nullptr, FALSE, dumpFolder, 0); });
    if (result != 0)
        throw std::runtime_error("the export cannot be loaded");
}

} // namespace

LoadResult LoadInNewProcess(LoadKind kind, const std::string& path)
{
    const std::string report = path + ".load";
    const std::string program = std::filesystem::read_symlink("/proc/self/exe").string();
    const std::string command = "'" + program + "' " + std::string(kLoadArgument) + " " +
                                std::to_string(static_cast<int>(kind)) + " '" + path + "' > '" + report + "'";
    LoadResult result;
    if (std::system(command.c_str()) != 0 ||
        !(std::ifstream(report) >> result.seconds >> result.peakBytes >> result.liveBytes >> result.allocations))
        throw std::runtime_error("a load failed: " + command);
    return result;
}

bool RunLoadProcess(int argumentCount, char** arguments)
{
    if (argumentCount != 3 || arguments[0] != kLoadArgument)
        return false;
    const auto kind = static_cast<LoadKind>(std::atoi(arguments[1]));
    const char* const path = arguments[2];
    const std::string folder = std::filesystem::path(path).parent_path().string();
    CSamples seconds;
    HeapUse use;
    if (kind == LoadKind::Parse)
        Parse(path, seconds);
    else {
        CSymb* table = NewSymbolTable();
        if (kind == LoadKind::InitCounted)
            StartCounting();
        Init(table, path, kind == LoadKind::InitAndDump ? folder.c_str() : nullptr, seconds);
        use = StopCounting();
    }
    std::cout << seconds.Median() << ' ' << PeakBytes() << ' ' << use.bytes << ' ' << use.allocations << std::endl;
    std::quick_exit(0); // the system takes the memory back faster
}
