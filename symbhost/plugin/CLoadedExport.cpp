#include "symbhost/plugin/CLoadedExport.h"

#include "platform/mfc/CHeldInterrupts.h"
#include "platform/win32/Clock.h"
#include "symbhost/Failure.h"
#include "symbhost/exports/LoadProblem.h"
#include "symbhost/plugin/CDump.h"
#include "symbhost/plugin/HostMemory.h"

CLoadedExport::CLoadedExport(const LoadOptions& options)
    : path(options.exportPath), plugin(options.pluginPath), table(plugin.NewSymbolTable())
{
    std::optional<CHeldInterrupts> held;
    std::optional<CDump> dump;
    if (options.dumpDir) {
        held.emplace(); // an interrupt must not leave half a dump
        dump.emplace(*options.dumpDir);
    }
    const DWORD startTick = GetTickCount();
    const auto start = std::chrono::steady_clock::now();
    const LONG status = table->Init(path.c_str(), &sink, TRUE, dump ? dump->Folder().c_str() : nullptr, 0);
    loadTime = std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start);
    const bool isLoaded = status == 0;
    if (isLoaded && dump && !held->WasInterrupted())
        dump->Keep(path, startTick, GetTickCount());
    dump.reset();
    held.reset();
    CHeldInterrupts::EndIfInterrupted();
    if (!isLoaded) {
        const std::string problem = FindLoadProblem(path).Text();
        throw CHostError("the export " + path + " cannot be loaded" + (problem.empty() ? "" : ": " + problem));
    }
}

bool CLoadedExport::HasVariables() const
{
    CElementArray elements(1);
    DWORD moreElements = 0;
    const HRESULT result = table->BrowseSymbolsWithProperties(
        "", "", 0, "", 0, 0, FALSE, TRUE, TRUE, 0, nullptr, nullptr, nullptr, 1, 0, 0, 0, 0, &moreElements,
        &elements.count, &elements.items, &elements.capacity, nullptr);
    return SUCCEEDED(result) && elements.count != 0;
}
