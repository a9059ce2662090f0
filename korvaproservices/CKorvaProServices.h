#pragma once

#include "korvaproservices/CLoadFindings.h"
#include "korvaproservices/CModuleReference.h"
#include "korvaproservices/KorvaProServices.h"
#include "platform/mfc/CInterfacePtr.h"

#include <string>

class CDocument;

// The component: loads an export and hands out its elements.
//
// Elements and lists hold the document, not the component, so both a second
// import and the end of the component leave them valid.
class CKorvaProServices final : public ImportSource, public WalkSource, public LoadReport
{
public:
    CKorvaProServices();
    ~CKorvaProServices();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE InitImportWithoutDlg(BSTR path) override;
    HRESULT STDMETHODCALLTYPE ImportFile() override;

    HRESULT STDMETHODCALLTYPE FindElement(BSTR tag, WalkElement** element) override;
    HRESULT STDMETHODCALLTYPE GetElementList(BSTR tag, WalkList** list) override;

    HRESULT STDMETHODCALLTYPE GetPosition(LONG* line, LONG* column) override;
    HRESULT STDMETHODCALLTYPE GetFault(BSTR* text) override;
    HRESULT STDMETHODCALLTYPE GetDeclaredEncoding(BSTR* name) override;
    HRESULT STDMETHODCALLTYPE GetUsedEncoding(BSTR* name) override;

private:
    CModuleReference moduleReference;
    ULONG references = 1; // no lock: one thread at a time
    std::basic_string<WCHAR> exportPath;
    CInterfacePtr<CDocument> document; // null while nothing is loaded
    CLoadFindings findings;            // of the last import
};
