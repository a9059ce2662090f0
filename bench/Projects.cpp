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

} // namespace

const std::string& ProjectPath(int variables)
{
    static std::map<int, std::string> paths;
    std::string& path = paths[variables];
    if (path.empty()) {
        const auto folder = std::filesystem::temp_directory_path() / "symbkds-bench";
        std::filesystem::create_directories(folder);
        path = (folder / ("plant" + std::to_string(variables) + ".kds")).string();
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
    if (!table) {
        table = NewSymbolTable();
        if (table->Init(ProjectPath(variables).c_str(), nullptr, FALSE, nullptr, 0) != 0)
            throw std::runtime_error("cannot load the project");
    }
    return *table;
}
