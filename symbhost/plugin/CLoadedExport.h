#pragma once

#include "symbhost/plugin/CComApartment.h"
#include "symbhost/plugin/CConsoleSink.h"
#include "symbhost/plugin/CPlugin.h"

#include <chrono>
#include <optional>
#include <string>

// What every command is told about the export.
struct LoadOptions
{
    std::string exportPath;             // ANSI code page
    std::string pluginPath;             // empty: the installed one
    std::optional<std::string> dumpDir; // none: no dump
};

// An export, loaded by the plug-in, with all that a host keeps for it.
class CLoadedExport
{
public:
    // Loads the export with the lookup's messages on. Raises CHostError when it cannot be loaded
    // or a dump that was asked for was not written whole; that leaves nothing in the folder.
    explicit CLoadedExport(const LoadOptions& options);

    CSymb& Table() const { return *table; }
    // As given, in the ANSI code page.
    const std::string& Path() const { return path; }
    CConsoleSink& Sink() { return sink; }
    DWORD TypeCode() const { return plugin.TypeCode(); }
    // Whether a host is listed any variable.
    bool HasVariables() const;
    // How long Init took.
    std::chrono::milliseconds LoadTime() const { return loadTime; }

private:
    // Destroyed from the last to the first: the table before the sink and the library that it uses.
    CComApartment apartment;
    std::string path;
    CConsoleSink sink;
    CPlugin plugin;
    SymbHolder table;
    std::chrono::milliseconds loadTime{};
};
