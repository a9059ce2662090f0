// The functions that leave the library. They catch no exception.
#include "platform/mfc/CWinApp.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/frame/CSymbXmlApp.h"
#include "symbkds/frame/Guard.h"
#include "symbkds/frame/PluginExports.h"

#include <memory>

namespace {

constexpr DWORD kSymbolTableType = 9;

} // namespace

STDAPI_EXPORT NewSymb(CSymb** symbolTable)
{
    const AFX_MAINTAIN_STATE2 state(&ModuleState());
    if (!symbolTable)
        return E_INVALIDARG;
    *symbolTable = WithMemoryException([] { return std::make_unique<CSymbXml>(); }).release();
    return S_OK;
}

STDAPI_EXPORT DeleteSymb(CSymb* symbolTable)
{
    const AFX_MAINTAIN_STATE2 state(&ModuleState());
    if (!symbolTable)
        return E_INVALIDARG;
    delete symbolTable;
    return S_OK;
}

STDAPI_EXPORT GetSymbType(DWORD* typeCode)
{
    const AFX_MAINTAIN_STATE2 state(&ModuleState());
    if (!typeCode)
        return E_INVALIDARG;
    *typeCode = kSymbolTableType;
    return S_OK;
}
