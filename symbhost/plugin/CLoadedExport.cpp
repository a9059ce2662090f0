#include "symbhost/plugin/CLoadedExport.h"

#include "platform/com/ClassObject.h"
#include "symbhost/Failure.h"
#include "symbhost/Text.h"
#include "symbhost/plugin/CTemporaryFolder.h"

CComApartment::CComApartment()
{
    if (const HRESULT result = CoInitializeEx(nullptr, COINIT_MULTITHREADED); FAILED(result))
        throw CHostError("COM cannot be initialised: " + ResultText(result));
}

CComApartment::~CComApartment()
{
    CoUninitialize();
}

CLoadedExport::CLoadedExport(const LoadOptions& options)
    : path(options.exportPath), plugin(options.pluginPath), table(plugin.NewSymbolTable())
{
    std::optional<CTemporaryFolder> temporary; // the dump is written by Init alone, so it may go right after
    const std::string dumpDir = options.dumpDir ? *options.dumpDir : temporary.emplace().Path();
    const auto start = std::chrono::steady_clock::now();
    const LONG status = table->Init(options.exportPath.c_str(), &sink, TRUE, dumpDir.c_str(), 0);
    loadTime = std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start);
    if (status != 0)
        throw CHostError("the export " + options.exportPath + " cannot be loaded");
}
