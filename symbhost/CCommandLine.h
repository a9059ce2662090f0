#pragma once

#include "symbhost/commands/BrowseCommand.h"
#include "symbhost/commands/ListCommand.h"
#include "symbhost/commands/ResolveCommand.h"
#include "symbhost/output/COutput.h"
#include "symbhost/plugin/CLoadedExport.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

// The program's options and commands.
class CCommandLine
{
public:
    CCommandLine();

    // Reads the arguments and runs the command that they name. Answers an exit status.
    int Run(int argc, const char* const* argv, COutput& output);

private:
    CLI::App* AddCommand(const std::string& name, const std::string& description, bool hasDumpDir);
    void AddResolve();
    void AddBrowse();
    void AddList();
    static void AddForm(CLI::App& command, OutputForm& form);
    int RunLoaded(CLoadedExport& loaded, COutput& output);

    CLI::App app;
    CLI::App* info = nullptr;
    CLI::App* resolve = nullptr;
    CLI::App* browse = nullptr;
    CLI::App* dump = nullptr;
    CLI::App* list = nullptr;
    LoadOptions loadOptions;
    ResolveOptions resolveOptions;
    BrowseOptions browseOptions;
    ListOptions listOptions;
};
