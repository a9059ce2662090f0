#include "symbhost/CCommandLine.h"

#include "symbhost/CNearestNames.h"
#include "symbhost/CProgress.h"
#include "symbhost/Failure.h"
#include "symbhost/Text.h"
#include "symbhost/commands/DumpCommand.h"
#include "symbhost/commands/InfoCommand.h"
#include "symbhost/exports/CSymbolPath.h"
#include "symbhost/output/CTreeView.h"
#include "symbhost/plugin/Installation.h"

#include <CLI/Validators.hpp>

#include <algorithm>
#include <limits>
#include <sstream>

namespace {

constexpr DWORD kLargestPage = 1000000;
constexpr WORD kLargestWord = std::numeric_limits<WORD>::max();

constexpr char kFooter[] = "Exit status: 0 all done, 1 a symbol is not served or a listing is not complete,\n"
                           "2 not done: the command line is wrong, the export cannot be loaded or the output fails.\n"
                           "symbhost COMMAND --help tells the options of a command.";

std::string CheckFieldCodes(const std::string& codes)
{
    const bool isKnown = !codes.empty() && codes.find_first_not_of("AC") == std::string::npos;
    return isKnown ? "" : "only the field codes A and C are known";
}

std::string CheckPrefix(const std::string& pattern)
{
    const bool isPrefix = pattern.find('*') >= pattern.size() - 1;
    return isPrefix || pattern.empty() ? "" : "text behind a * means nothing here; list --name takes such patterns";
}

} // namespace

CCommandLine::CCommandLine()
    : app("Loads the symbol export of a PLC project as a data server does, lists and resolves symbols and tells why "
          "some are not served.",
          "symbhost")
{
    app.set_version_flag("--version", VersionText, "Print the version, and the files that would be loaded");
    app.require_subcommand(1);
    app.footer(kFooter);
    AddInfo();
    AddResolve();
    AddBrowse();
    AddList();
    AddWhy();
    AddCheck();
    AddDiff();
    AddAt();
    AddMap();
    AddDump();
}

CLI::App& CCommandLine::AddCommand(const std::string& name, const std::string& description, bool hasDumpDir)
{
    CLI::App* command = app.add_subcommand(name, description);
    command->add_option("EXPORT", loadOptions.exportPath, "Export file (.kds)")->required();
    AddPlugin(*command);
    if (hasDumpDir)
        command->add_option("--dump-dir", loadOptions.dumpDir, "Existing folder for a dump of the load")
            ->type_name("DIR");
    commands.push_back({command});
    return *command;
}

void CCommandLine::AddPlugin(CLI::App& command)
{
    command.add_option("--plugin", loadOptions.pluginPath, "Plug-in to load; without it the installed one")
        ->type_name("PATH");
}

CLI::Option* CCommandLine::AddForm(CLI::App& command, OutputForm& form)
{
    CLI::Option* const json = command.add_flag_callback(
        "--json", [&form] { form = OutputForm::Json; }, "Print a JSON array, an object for each row");
    CLI::Option* const csv = command.add_flag_callback(
        "--csv", [&form] { form = OutputForm::Csv; }, "Print CSV with a header row");
    return csv->excludes(json);
}

void CCommandLine::AddNameFile(CLI::App& command, NameSource& names)
{
    CLI::Option* const file =
        command.add_option("--from", names.file, "Read names from a file, one a line; - is standard input");
    file->type_name("FILE");
    command.add_option("--column", names.column, "The file is a table; the names stand in this column of it")
        ->type_name("TITLE")
        ->needs(file);
}

void CCommandLine::AddNames(CLI::App& command, NameSource& names)
{
    command.add_option("NAME", names.names,
                       "Symbol such as MOTOR1.SPEED, TAB[3] or W1.5; - reads names from standard input, one a line");
    AddNameFile(command, names);
    commands.back().takeRest = [&names](const std::string& name) { names.names.push_back(name); };
    commands.back().check = [&names] {
        if (names.names.empty() && names.file.empty())
            throw CHostError("NAME is required, or --from");
    };
}

void CCommandLine::AddInfo()
{
    CLI::App& info = AddCommand("info", "Load the export and tell what is in it");
    info.add_flag("--json", infoAsJson, "Print a JSON object");
    commands.back().run = [this](auto& loaded, auto& output) { return InfoCommand(loaded, infoAsJson, output); };
}

void CCommandLine::AddResolve()
{
    CLI::App& resolve = AddCommand("resolve", "Turn names into addresses");
    AddNames(resolve, resolveOptions.names);
    resolve.add_flag("--why", resolveOptions.why, "Tell for each name whether it is served, and why not");
    AddForm(resolve, resolveOptions.form);
    commands.back().run = [this](auto& loaded, auto& output) { return ResolveCommand(loaded, resolveOptions, output); };
}

void CCommandLine::AddBrowse()
{
    CLI::App& browse = AddCommand("browse", "List the variables, or what is below a path");
    ListingRequest& request = browseOptions.request;
    browse.add_option("PATH", request.path, "Structure, array or function block; without it the variables");
    browse.add_option("--pattern", request.pattern, "List names that begin like this (up to a *, case counts)")
        ->type_name("TEXT")
        ->check(CheckPrefix);
    browse.add_flag_callback(
        "--leaves", [&request] { request.wantBranches = false; }, "List values only");
    browse
        .add_flag_callback(
            "--branches", [&request] { request.wantLeaves = false; }, "List what has members only")
        ->excludes("--leaves");
    browse.add_flag_callback(
        "--unlocated", [&request] { request.filter = "%UL"; }, "List only what has no address of its own");
    browse.add_option("--vartype", request.varType, "List entries of this variant type only")
        ->check(CLI::Range(WORD{0}, kLargestWord));
    AddBrowseForm(browse);
    commands.back().takeRest = [&request](const std::string& path) {
        if (!request.path.empty())
            throw CHostError("browse takes one PATH");
        request.path = path;
    };
    commands.back().run = [this](auto& loaded, auto& output) {
        BrowseOptions options = browseOptions;
        options.request.path = MendedPath(Utf8FromArgument(options.request.path));
        options.request.pattern = Utf8FromArgument(options.request.pattern);
        return BrowseCommand(loaded, options, output);
    };
}

void CCommandLine::AddBrowseForm(CLI::App& browse)
{
    CLI::Option* const csv = AddForm(browse, browseOptions.form);
    CLI::Option* const page =
        browse.add_option("--page", browseOptions.page, "Show where pages of N entries begin; 0: all in one page");
    page->type_name("N")->check(CLI::Range(DWORD{0}, kLargestPage))->excludes("--json")->excludes(csv);
    CLI::Option* const fields =
        browse.add_option("--fields", browseOptions.fields,
                          "Show addresses (A), comments (C) or both (AC); of the variables, only "
                          "branches and values of 1 or 2 bytes that have an address are listed");
    fields->type_name("CODES")->check(CheckFieldCodes)->excludes(page);
    CLI::Option* const tree = browse.add_flag("--tree", browseOptions.tree, "Draw a tree");
    tree->excludes("--json")->excludes(csv)->excludes(page)->excludes(fields);
    tree->excludes("--vartype")->excludes("--leaves");
    browse.add_option("--depth", browseOptions.depth, "Levels of the tree (3)")
        ->needs(tree)
        ->check(CLI::Range(1U, CTreeView::kDeepest));
}

void CCommandLine::AddList()
{
    CLI::App& list = AddCommand("list", "List symbols down to the last value, with their places");
    list.add_option("PATH", listOptions.paths, "Symbols below which to list; without one all variables");
    list.add_flag("--all", listOptions.walk.branches, "List what has members too");
    list.add_option("--name", listOptions.filter.name, "Only names like this: * any text, ? one character, any case")
        ->type_name("GLOB");
    list.add_option("--type", listOptions.filter.type, "Only symbols of this type, any case")->type_name("TYPE");
    list.add_option("--comment", listOptions.filter.comment, "Only comments that hold this text, any case")
        ->type_name("TEXT");
    list.add_option("--customer", listOptions.filter.customer, "Only customer strings that hold this text, any case")
        ->type_name("TEXT");
    list.add_option("--elements", listOptions.walk.elements, "At most N elements of each dimension")
        ->type_name("N")
        ->check(CLI::Range(DWORD{1}, std::numeric_limits<DWORD>::max()));
    AddForm(list, listOptions.form);
    commands.back().takeRest = [this](const std::string& path) { listOptions.paths.push_back(path); };
    commands.back().run = [this](auto& loaded, auto& output) { return ListCommand(loaded, listOptions, output); };
}

void CCommandLine::AddWhy()
{
    CLI::App& why = AddCommand("why", "Tell why a host gets symbols, or not");
    AddNames(why, whyOptions.names);
    AddForm(why, whyOptions.form);
    commands.back().run = [this](auto& loaded, auto& output) { return WhyCommand(loaded, whyOptions, output); };
}

void CCommandLine::AddCheck()
{
    CLI::App& check = AddCommand("check", "Find what will not work in the export, or looks wrong");
    AddForm(check, checkForm);
    commands.back().runAlone = [this](auto& output) { return CheckCommand(loadOptions, checkForm, output); };
}

void CCommandLine::AddDiff()
{
    CLI::App& diff = *app.add_subcommand("diff", "Tell what changed for a host between two exports");
    commands.push_back({&diff});
    diff.add_option("BEFORE", diffOptions.before, "Export file (.kds)")->required();
    diff.add_option("AFTER", diffOptions.after, "Export file (.kds)")->required();
    AddPlugin(diff);
    diff.add_option("--only", diffOptions.only, "Only these changes, separated by commas")
        ->type_name("CHANGE,...")
        ->delimiter(',')
        ->check(ChangeProblem);
    diff.add_option("--name", diffOptions.filter.name, "Only names like this: * any text, ? one character, any case")
        ->type_name("GLOB");
    AddNameFile(diff, diffOptions.names);
    AddForm(diff, diffOptions.form);
    commands.back().runAlone = [this](auto& output) { return DiffCommand(loadOptions, diffOptions, output); };
}

void CCommandLine::AddAt()
{
    CLI::App& at = AddCommand("at", "Tell which symbols lie at a place");
    at.add_option("PLACE", atOptions.places,
                  "BLOCK:OFFSET, BLOCK:OFFSET-END or BLOCK:OFFSET.BIT, in bytes, or an address such as %MW10")
        ->required();
    AddForm(at, atOptions.form);
    commands.back().run = [this](auto& loaded, auto& output) { return AtCommand(loaded, atOptions, output); };
}

void CCommandLine::AddMap()
{
    CLI::App& map = AddCommand("map", "Show how the variables use the memory");
    map.add_option("--block", mapOptions.block, "Only this block")
        ->type_name("N")
        ->check(CLI::Range(WORD{0}, kLargestWord));
    map.add_option("--svg", mapOptions.svgPath, "Write a picture instead of a table")->type_name("FILE");
    AddForm(map, mapOptions.form);
    commands.back().run = [this](auto& loaded, auto& output) { return MapCommand(loaded, mapOptions, output); };
}

void CCommandLine::AddDump()
{
    CLI::App& dump = AddCommand("dump", "Write the loaded dictionaries into a file and print its path", false);
    dump.add_option("DIR", loadOptions.dumpDir, "Existing folder for the file")->required();
    commands.back().run = [this](auto&, auto& output) { return DumpCommand(loadOptions, output); };
}

bool CCommandLine::IsCommandKnown(const CArguments& arguments) const
{
    const std::vector<const char*>& given = arguments.Parsed();
    if (given.size() < 2 || *given[1] == '-')
        return true; // something else is wrong, if anything
    CNearestNames nearest(given[1]);
    for (const Command& command : commands) {
        if (command.app->get_name() == given[1])
            return true;
        nearest.Show(command.app->get_name());
    }
    const std::vector<std::string> meant = nearest.Names();
    Complain(std::string("there is no command ") + given[1] +
             (meant.empty() ? std::string() : "; did you mean " + meant.front() + "?"));
    return false;
}

bool CCommandLine::Parse(const CArguments& arguments, COutput& output, int& status)
{
    status = kNotDone;
    std::string problem;
    if (const std::string option = arguments.WithoutValue(); !option.empty()) {
        problem = option + " has no value";
    } else if (IsCommandKnown(arguments)) {
        try {
            app.parse(static_cast<int>(arguments.Parsed().size()), arguments.Parsed().data());
            return true;
        } catch (const CLI::ParseError& outcome) {
            if (outcome.get_exit_code() == 0) {
                std::ostringstream text;
                status = app.exit(outcome, text, text); // --help and --version
                output.Write(text.str());
                output.Flush();
                return false;
            }
            problem = outcome.what();
        }
    }
    if (!problem.empty())
        Complain(problem);
    Complain("--help tells how it is called");
    return false;
}

int CCommandLine::Run(int argc, const char* const* argv, COutput& output)
{
    return Guarded([&] {
        const CArguments arguments(argc, argv);
        int status = kDone;
        if (!Parse(arguments, output, status))
            return status;
        const auto command = std::ranges::find_if(commands, [](const Command& one) { return one.app->parsed(); });
        return RunCommand(*command, arguments, output);
    });
}

int CCommandLine::RunCommand(const Command& command, const CArguments& arguments, COutput& output)
{
    for (const std::string& argument : arguments.Rest()) {
        if (!command.takeRest)
            throw CHostError(command.app->get_name() + " takes nothing behind --");
        command.takeRest(argument);
    }
    if (command.check)
        command.check();
    const CProgress progress(output);
    if (command.runAlone)
        return command.runAlone(output);
    CLoadedExport loaded(loadOptions);
    if (!loaded.HasVariables())
        Complain(loadOptions.exportPath + " gave no variables; symbhost check tells why");
    return command.run(loaded, output);
}
