#include "platform/com/ClassObject.h"
#include "platform/mfc/CBstr.h"
#include "platform/mfc/CSingleLock.h"
#include "platform/win32/CodePage.h"
#include "platform/win32/FileStat.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/frame/CSymbXmlApp.h"
#include "symbkds/frame/Guard.h"
#include "symbkds/import/CImportConnection.h"
#include "symbkds/model/CSymbXMLDDTDef.h"
#include "symbkds/model/ExportKeys.h"

namespace {

// Hosts show this text, so the spelling stays.
constexpr LPCSTR kUnknownHeader = "Unknwow";

template <class Interface>
bool Obtained(HRESULT result, const CInterfacePtr<Interface>& interfacePtr)
{
    return SUCCEEDED(result) && interfacePtr;
}

} // namespace

LONG CSymbXml::Init(LPCSTR path, CTraceSink* sink, BOOL verboseFlag, LPCSTR dumpDir, LONG)
{
    const CSingleLock objectGuard(&lock, TRUE);
    dumpDirectory = dumpDir;
    sourcePath = path;
    traceSink = sink;
    verbose = verboseFlag;
    const CSingleLock importGuard(&ImportLock(), TRUE);

    CImportConnection connection;
    const auto report = [this](LPCSTR text) { ReportException(messages::kInitException, text); };
    bool refused = false;
    if (RunGuarded([&] { refused = !OpenExport(connection); }, report))
        connection.Release(); // nothing half-opened is imported
    if (refused)
        return -1;
    RunGuarded([&] { ImportExport(connection); }, report);
    return 0;
}

// Connects to the component and has it load the export. False after a failure, which is reported.
bool CSymbXml::OpenExport(CImportConnection& connection)
{
    HRESULT result = CoCreateInstance(CLSID_KorvaProServices, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                      connection.component.PutVoid());
    if (!Obtained(result, connection.component)) {
        SendTrace(messages::kNoComponent, {sourcePath});
        return false;
    }
    result = connection.component->QueryInterface(IID_ImportSource, connection.importSource.PutVoid());
    if (!Obtained(result, connection.importSource)) {
        SendTrace(messages::kNoImportSource, {sourcePath});
        return false;
    }
    if (FAILED(connection.importSource->InitImportWithoutDlg(CBstr::FromNarrow(sourcePath, CP_THREAD_ACP).Get()))) {
        SendTrace(messages::kInitImportFailed, {});
        return false;
    }
    result = connection.importSource->ImportFile();
    if (FAILED(result)) {
        SendTrace(messages::kLoadFailed, {sourcePath, HexResult(result)});
        return false;
    }
    result = connection.component->QueryInterface(IID_WalkSource, connection.walkSource.PutVoid());
    if (!Obtained(result, connection.walkSource)) {
        SendTrace(messages::kNoWalkSource, {sourcePath});
        return false;
    }
    return true;
}

// Fills the dictionaries from the loaded export and dumps them.
void CSymbXml::ImportExport(CImportConnection& connection)
{
    projectIdentification.fill(0);
    headerVersion = kUnknownHeader;
    headerName = kUnknownHeader;
    struct _stat32 status;
    if (_stat32(sourcePath, &status) == 0)
        fileTime = status.st_mtime;

    // Without the walk interface an exception ended the first phase: there is nothing to import.
    if (!connection.walkSource)
        AfxThrowOleException(E_POINTER);
    // An export without this element still has types; the variable import reports the missing one.
    connection.walkSource->FindElement(ExportKeys().dataBlock.Get(), connection.dataBlock.Put());
    BrowseAllDDTInCMap(connection.walkSource.Get());
    BrowseAllDFBInCMap(connection.walkSource.Get());
    RemoveAllDFBMembers();
    BrowseAllItemInCMap(connection.dataBlock.Get());
    connection.Release();
    DumpDictionaries(); // an export that cannot be dumped is loaded all the same
}

void CSymbXml::RemoveAllDFBMembers()
{
    const CSingleLock guard(&lock, TRUE);
    const MAPOFDDTDEF::Definitions& definitions = types.GetDefinitions();
    for (const auto* pair = definitions.PGetFirstAssoc(); pair; pair = definitions.PGetNextAssoc(pair))
        if (pair->value->IsDFB())
            pair->value->RemoveDFBMembers(&types);
    types.DropDisplaced();
}
