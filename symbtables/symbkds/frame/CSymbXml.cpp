#include "symbkds/frame/CSymbXml.h"

#include "platform/mfc/CSingleLock.h"
#include "platform/mfc/LockOrder.h"
#include "symbkds/frame/PluginExports.h"
#include "symbkds/model/CUpperName.h"

namespace {

constexpr std::uint32_t kVariableBuckets = 25309;
constexpr LPCSTR kDescription = "KorvaPro exported located symbol table";

} // namespace

CSymbXml::CSymbXml() : description(kDescription), consistencyState(CSymb::GetConsistencyState()), types(this)
{
    variables.InitHashTable(kVariableBuckets);
}

CSymbXml::~CSymbXml()
{
    ClearDictionaries();
}

void CSymbXml::ClearDictionaries()
{
    const CSingleLock guard(&lock, TRUE);
    for (const auto* pair = variables.PGetFirstAssoc(); pair; pair = variables.PGetNextAssoc(pair))
        delete pair->value;
    variables.RemoveAll();
    types.RemoveAllTypeDefs();
    anonymousArrayCounter = 0;
}

void CSymbXml::SendTrace(const TraceMessage& message, std::initializer_list<CString> arguments) const
{
    if (!traceSink || (message.verboseOnly && !verbose))
        return;
    const CString text = FormatTraceMessage(message, arguments);
    const CForeignCall call; // a sink may ask another symbol table
    traceSink->Trace(message.level, text);
}

void CSymbXml::ReportException(const ExceptionMessages& phase, LPCSTR exceptionText)
{
    try {
        if (exceptionText)
            SendTrace(phase.described, {sourcePath, exceptionText});
        else
            SendTrace(phase.plain, {sourcePath});
    } catch (const CMemoryException&) {
        // Memory is too short even for the message: the phase ends without one.
    }
}

const CSymbXMLItemDef* CSymbXml::FindVariable(const CString& name) const
{
    CSymbXMLItemDef* variable = nullptr;
    return variables.Lookup(CUpperName(name), variable) ? variable : nullptr;
}

DWORD CSymbXml::GetSymbolTableType()
{
    DWORD typeCode = 0;
    GetSymbType(&typeCode);
    return typeCode;
}

CString CSymbXml::GetDescription()
{
    return description;
}

CString CSymbXml::GetSourceName()
{
    const CSingleLock guard(&lock, TRUE);
    return sourcePath;
}

CString CSymbXml::GetHeaderName()
{
    const CSingleLock guard(&lock, TRUE);
    return headerName;
}

CString CSymbXml::GetInfoTextA()
{
    return {};
}

CString CSymbXml::GetInfoTextB()
{
    return {};
}

HRESULT CSymbXml::GetCountValue(DWORD* value)
{
    if (!value)
        return E_INVALIDARG;
    *value = 0;
    return S_OK;
}

LONG CSymbXml::GetGeneration()
{
    return 0;
}

LONG CSymbXml::GetConsistencyState()
{
    return consistencyState;
}

void CSymbXml::SetVerbose(BOOL flag)
{
    const CSingleLock guard(&lock, TRUE);
    verbose = flag;
}

HRESULT CSymbXml::ValidateConsistency(LONG, LONG, LONG, LONG)
{
    return S_OK;
}

// What this kind of symbol table does not provide.

HRESULT CSymbXml::ReservedA(LONG, LONG, LONG)
{
    return E_NOTIMPL;
}

HRESULT CSymbXml::ReservedB(LONG, LONG, LONG, LONG, LONG)
{
    return E_NOTIMPL;
}

HRESULT CSymbXml::ReservedC()
{
    return E_NOTIMPL;
}

HRESULT CSymbXml::ReloadAndUpdateSymbols(LONG, LONG)
{
    return E_NOTIMPL;
}

HRESULT CSymbXml::ReOpenDatabase(void**)
{
    return E_NOTIMPL;
}

HRESULT CSymbXml::ReservedE(LONG)
{
    return E_NOTIMPL;
}

HRESULT CSymbXml::ReservedF(LONG)
{
    return E_NOTIMPL;
}
