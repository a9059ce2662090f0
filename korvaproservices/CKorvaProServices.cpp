#include "korvaproservices/CKorvaProServices.h"

#include "korvaproservices/CDocument.h"
#include "korvaproservices/CElementList.h"
#include "korvaproservices/ElementSearch.h"
#include "korvaproservices/ResultOf.h"

#include <algorithm>
#include <limits>

namespace {

// What an operation answers that needs a document while none is loaded.
template <class Interface>
HRESULT RefuseUnloaded(Interface** out)
{
    if (!out)
        return E_POINTER;
    *out = nullptr;
    return E_UNEXPECTED;
}

} // namespace

CKorvaProServices::CKorvaProServices() = default;
CKorvaProServices::~CKorvaProServices() = default;

HRESULT CKorvaProServices::QueryInterface(REFIID iid, void** object)
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    // All interfaces derive from IUnknown; the first one is the object's identity.
    if (iid == IID_IUnknown || iid == IID_ImportSource)
        *object = static_cast<ImportSource*>(this);
    else if (iid == IID_WalkSource)
        *object = static_cast<WalkSource*>(this);
    else if (iid == IID_LoadReport)
        *object = static_cast<LoadReport*>(this);
    else
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG CKorvaProServices::AddRef()
{
    return ++references;
}

ULONG CKorvaProServices::Release()
{
    const ULONG left = --references;
    if (left == 0) {
        const CModuleReference untilReturn;
        delete this;
    }
    return left;
}

HRESULT CKorvaProServices::InitImportWithoutDlg(BSTR path)
{
    exportPath.clear();
    if (SysStringLen(path) == 0)
        return E_INVALIDARG;
    return ResultOf([&] {
        exportPath.assign(path, SysStringLen(path));
        return S_OK;
    });
}

HRESULT CKorvaProServices::ImportFile()
{
    document.Release(); // first, so that the memory of two documents is not needed
    findings = {};
    if (exportPath.empty())
        return E_INVALIDARG;
    return ResultOf([&] { return CDocument::Load(exportPath.c_str(), document, findings); });
}

HRESULT CKorvaProServices::FindElement(BSTR tag, WalkElement** element)
{
    if (!document)
        return RefuseUnloaded(element);
    return Deliver(element, [&] { return document->MakeElement(NextElementCalled(document->Root(), ViewOf(tag))); });
}

HRESULT CKorvaProServices::GetElementList(BSTR tag, WalkList** list)
{
    if (!document)
        return RefuseUnloaded(list);
    return Deliver(list, [&] {
        auto made = CElementList::Make(*document.Get());
        const auto wanted = ViewOf(tag);
        pugi::xml_node node = document->Root();
        while ((node = NextElementCalled(node, wanted)))
            made->Add(node);
        return made.Detach();
    });
}

HRESULT CKorvaProServices::GetPosition(LONG* line, LONG* column)
{
    if (!line || !column)
        return E_POINTER;
    constexpr std::size_t kMost = std::numeric_limits<LONG>::max();
    *line = static_cast<LONG>(std::min(findings.position.line, kMost));
    *column = static_cast<LONG>(std::min(findings.position.column, kMost));
    return S_OK;
}

HRESULT CKorvaProServices::GetFault(BSTR* text)
{
    return Deliver(text, [&] { return BstrOf(findings.fault); });
}

HRESULT CKorvaProServices::GetDeclaredEncoding(BSTR* name)
{
    return Deliver(name, [&] { return BstrOf(findings.declaredEncoding.c_str()); });
}

HRESULT CKorvaProServices::GetUsedEncoding(BSTR* name)
{
    return Deliver(name, [&] { return BstrOf(findings.usedEncoding); });
}
