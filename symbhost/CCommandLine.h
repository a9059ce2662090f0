#pragma once

#include "symbhost/commands/AtCommand.h"
#include "symbhost/commands/BrowseCommand.h"
#include "symbhost/commands/CArguments.h"
#include "symbhost/commands/CheckCommand.h"
#include "symbhost/commands/DiffCommand.h"
#include "symbhost/commands/ListCommand.h"
#include "symbhost/commands/MapCommand.h"
#include "symbhost/commands/ResolveCommand.h"
#include "symbhost/commands/WhyCommand.h"
#include "symbhost/output/COutput.h"
#include "symbhost/plugin/CLoadedExport.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <functional>
#include <vector>

// The program's options and commands.
class CCommandLine
{
public:
    CCommandLine();

    // Reads the arguments and runs the command that they name. Answers an exit status.
    int Run(int argc, const char* const* argv, COutput& output);

private:
    struct Command
    {
        CLI::App* app = nullptr;
        // Takes an argument that stood behind "--"; none: the command takes none there.
        std::function<void(const std::string&)> takeRest = {};
        // Raises CHostError for options that do not fit together, before the export is loaded.
        std::function<void()> check = {};
        std::function<int(CLoadedExport&, COutput&)> run = {};
        // Instead of `run`: the command loads what it needs itself.
        std::function<int(COutput&)> runAlone = {};
    };

    // The command is the last of `commands`.
    CLI::App& AddCommand(const std::string& name, const std::string& description, bool hasDumpDir = true);
    void AddPlugin(CLI::App& command);
    static CLI::Option* AddForm(CLI::App& command, OutputForm& form);
    static void AddNameFile(CLI::App& command, NameSource& names);
    void AddNames(CLI::App& command, NameSource& names);
    void AddInfo();
    void AddResolve();
    void AddBrowse();
    void AddBrowseForm(CLI::App& browse);
    void AddList();
    void AddWhy();
    void AddCheck();
    void AddDiff();
    void AddAt();
    void AddMap();
    void AddDump();

    // Whether the arguments make sense; tells if not. `status` is what the program answers then.
    bool Parse(const CArguments& arguments, COutput& output, int& status);
    bool IsCommandKnown(const CArguments& arguments) const;
    int RunCommand(const Command& command, const CArguments& arguments, COutput& output);

    CLI::App app;
    std::vector<Command> commands;
    LoadOptions loadOptions;
    ResolveOptions resolveOptions;
    BrowseOptions browseOptions;
    ListOptions listOptions;
    WhyOptions whyOptions;
    OutputForm checkForm = OutputForm::Table;
    DiffOptions diffOptions;
    AtOptions atOptions;
    MapOptions mapOptions;
    bool infoAsJson = false;
};
