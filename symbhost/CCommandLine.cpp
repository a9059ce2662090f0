#include "symbhost/CCommandLine.h"

#include "symbhost/Failure.h"
#include "symbhost/Text.h"
#include "symbhost/commands/DumpCommand.h"
#include "symbhost/commands/InfoCommand.h"
#include "symbhost/output/CTreeView.h"

#include <CLI/Validators.hpp>

namespace {

constexpr DWORD kLargestPage = 1000000;

constexpr char kFooter[] = "Exit status: 0 all done, 1 a name was not resolved or a listing is not complete,\n"
                           "2 the export could not be loaded or the command line is wrong.\n"
                           "symbhost COMMAND --help tells the options of a command.";

std::string CheckFieldCodes(const std::string& codes)
{
    const bool isKnown = !codes.empty() && codes.find_first_not_of("AC") == std::string::npos;
    return isKnown ? "" : "only the field codes A and C are known";
}

} // namespace

CCommandLine::CCommandLine()
    : app("Loads the symbol export of a PLC project as a data server does, resolves names and lists symbols.",
          "symbhost")
{
    app.set_version_flag("--version", "symbhost " SYMBHOST_VERSION);
    app.require_subcommand(1);
    app.footer(kFooter);
    info = AddCommand("info", "Load the export and tell what is in it", true);
    AddResolve();
    AddBrowse();
    AddList();
    dump = AddCommand("dump", "Write the loaded dictionaries into a file and print its path", false);
    dump->add_option("DIR", loadOptions.dumpDir, "Existing folder for the file")->required();
}

CLI::App* CCommandLine::AddCommand(const std::string& name, const std::string& description, bool hasDumpDir)
{
    CLI::App* command = app.add_subcommand(name, description);
    command->add_option("EXPORT", loadOptions.exportPath, "Export file (.kds)")->required();
    command->add_option("--plugin", loadOptions.pluginPath, "Plug-in to load; without it the one beside this program")
        ->type_name("PATH");
    if (hasDumpDir)
        command
            ->add_option("--dump-dir", loadOptions.dumpDir,
                         "Folder for the dump of the load; without it a temporary one, empty: no dump")
            ->type_name("DIR");
    return command;
}

void CCommandLine::AddResolve()
{
    resolve = AddCommand("resolve", "Turn names into addresses", true);
    resolve
        ->add_option("NAME", resolveOptions.names,
                     "Symbol such as MOTOR1.SPEED, TAB[3] or W1.5; - reads names from "
                     "standard input, one a line")
        ->required();
    resolve->add_flag("--json", resolveOptions.json, "Print a JSON array, an object for each name");
}

void CCommandLine::AddBrowse()
{
    browse = AddCommand("browse", "List the variables, or what is below a path", true);
    ListingRequest& request = browseOptions.request;
    browse->add_option("PATH", request.path, "Structure, array or function block; without it the variables");
    browse->add_option("--pattern", request.pattern, "List names that begin like this (up to a *, case counts)")
        ->type_name("TEXT");
    browse->add_flag_callback(
        "--leaves", [&request] { request.wantBranches = false; }, "List values only");
    browse
        ->add_flag_callback(
            "--branches", [&request] { request.wantLeaves = false; }, "List what has members only")
        ->excludes("--leaves");
    browse->add_flag_callback(
        "--unlocated", [&request] { request.filter = "%UL"; }, "List only what has no address of its own");
    CLI::Option* varType = browse->add_option("--vartype", request.varType, "List entries of this variant type only");
    CLI::Option* json = browse->add_flag("--json", browseOptions.json, "Print a JSON array, an object for each entry");
    CLI::Option* page =
        browse->add_option("--page", browseOptions.page, "Show where pages of N entries begin; 0: all in one page");
    page->type_name("N")->check(CLI::Range(DWORD{0}, kLargestPage))->excludes(json);
    CLI::Option* fields = browse->add_option("--fields", browseOptions.fields,
                                             "Show addresses (A), comments (C) or both (AC); of the variables, only "
                                             "branches and values of 1 or 2 bytes that have an address are listed");
    fields->type_name("CODES")->check(CheckFieldCodes)->excludes(page);
    CLI::Option* tree = browse->add_flag("--tree", browseOptions.tree, "Draw a tree");
    tree->excludes(json)->excludes(page)->excludes(fields)->excludes(varType)->excludes("--leaves");
    browse->add_option("--depth", browseOptions.depth, "Levels of the tree (3)")
        ->needs(tree)
        ->check(CLI::Range(1U, CTreeView::kDeepest));
}

void CCommandLine::AddList()
{
    list = AddCommand("list", "List symbols down to the last value, with their places", true);
    list->add_option("PATH", listOptions.paths, "Symbols below which to list; without one all variables");
    list->add_flag("--all", listOptions.walk.branches, "List what has members too");
    list->add_option("--name", listOptions.filter.name, "Only names like this: * any text, ? one character, any case")
        ->type_name("GLOB");
    list->add_option("--type", listOptions.filter.type, "Only symbols of this type, any case")->type_name("TYPE");
    list->add_option("--comment", listOptions.filter.comment, "Only comments that hold this text, any case")
        ->type_name("TEXT");
    list->add_option("--customer", listOptions.filter.customer, "Only customer strings that hold this text, any case")
        ->type_name("TEXT");
    list->add_option("--elements", listOptions.walk.elements, "At most N elements of each dimension")
        ->type_name("N")
        ->check(CLI::Range(DWORD{1}, kListedElements));
    AddForm(*list, listOptions.form);
}

void CCommandLine::AddForm(CLI::App& command, OutputForm& form)
{
    CLI::Option* const json = command.add_flag_callback(
        "--json", [&form] { form = OutputForm::Json; }, "Print a JSON array, an object for each row");
    command
        .add_flag_callback(
            "--csv", [&form] { form = OutputForm::Csv; }, "Print CSV with a header row")
        ->excludes(json);
}

int CCommandLine::Run(int argc, const char* const* argv, COutput& output)
{
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& outcome) {
        if (outcome.get_exit_code() == 0)
            return app.exit(outcome); // --help and --version
        Complain(outcome.what());
        Complain("--help tells how it is called");
        return kNotStarted;
    }
    return Guarded(kNotStarted, [&] {
        if (dump->parsed())
            return DumpCommand(loadOptions, output);
        CLoadedExport loaded(loadOptions);
        return Guarded(kIncomplete, [&] { return RunLoaded(loaded, output); });
    });
}

int CCommandLine::RunLoaded(CLoadedExport& loaded, COutput& output)
{
    if (info->parsed())
        return InfoCommand(loaded, output);
    if (resolve->parsed())
        return ResolveCommand(loaded, resolveOptions, output);
    if (list->parsed())
        return ListCommand(loaded, listOptions, output);
    browseOptions.request.path = Utf8FromArgument(browseOptions.request.path);
    browseOptions.request.pattern = Utf8FromArgument(browseOptions.request.pattern);
    return BrowseCommand(loaded, browseOptions, output);
}
