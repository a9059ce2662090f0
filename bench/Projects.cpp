#include "bench/Projects.h"

#include "bench/ProjectGenerator.h"
#include "platform/com/ClassObject.h"
#include "platform/win32/File.h"
#include "platform/win32/Library.h"
#include "symb/Exports.h"

#include <filesystem>
#include <map>
#include <stdexcept>

namespace {

constexpr unsigned kSeed = 20261122;

NewSymbFunction LoadPlugin()
{
    char program[4096];
    GetModuleFileNameA(nullptr, program, sizeof program);
    const auto library = std::filesystem::path(program).replace_filename(SHARED_LIBRARY_NAME("symbkds"));
    const HMODULE module = LoadLibraryA(library.c_str());
    if (!module || FAILED(CoInitializeEx(nullptr, COINIT_MULTITHREADED)))
        throw std::runtime_error("cannot load the plug-in");
    return reinterpret_cast<NewSymbFunction>(GetProcAddress(module, kNewSymbExport));
}

std::string NewPath(const std::string& name)
{
    const auto folder = std::filesystem::temp_directory_path() / "symbkds-bench";
    std::filesystem::create_directories(folder);
    return (folder / (name + ".kds")).string();
}

CSymb* Load(const std::string& path)
{
    CSymb* table = NewSymbolTable();
    if (table->Init(path.c_str(), nullptr, FALSE, nullptr, 0) != 0)
        throw std::runtime_error("cannot load the project");
    return table;
}

} // namespace

const std::string& ProjectPath(int variables)
{
    static std::map<int, std::string> paths;
    std::string& path = paths[variables];
    if (path.empty()) {
        path = NewPath("plant" + std::to_string(variables));
        WriteProject(path, variables, kSeed);
    }
    return path;
}

CSymb* NewSymbolTable()
{
    static const NewSymbFunction create = LoadPlugin();
    CSymb* table = nullptr;
    if (FAILED(create(&table)))
        throw std::runtime_error("cannot create a symbol table");
    return table;
}

CSymb& LoadedProject(int variables)
{
    static std::map<int, CSymb*> tables;
    CSymb*& table = tables[variables];
    if (!table)
        table = Load(ProjectPath(variables));
    return *table;
}

CSymb& LoadedWideProject()
{
    static CSymb* const table = [] {
        const std::string path = NewPath("wide");
        WriteWideProject(path, kSeed);
        return Load(path);
    }();
    return *table;
}
