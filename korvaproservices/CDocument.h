#pragma once

#include "korvaproservices/CChildAttributes.h"
#include "korvaproservices/CLoadFindings.h"
#include "korvaproservices/CModuleReference.h"
#include "korvaproservices/CSpareMemory.h"
#include "korvaproservices/KorvaProServices.h"
#include "platform/mfc/CInterfacePtr.h"

#include <pugixml.hpp>

// A loaded export.
//
// Lives as long as the component or any element or list refers to it. It is
// used by one thread at a time, as all interfaces of one component are, so its
// count needs no lock.
class CDocument
{
public:
    // Reads and parses the file into `loaded`, which stays empty on failure; the
    // results are those of ImportFile. `findings` is new. May raise std::bad_alloc.
    static HRESULT Load(LPCWSTR path, CInterfacePtr<CDocument>& loaded, CLoadFindings& findings);

    CDocument(const CDocument&) = delete;
    CDocument& operator=(const CDocument&) = delete;

    void AddRef() noexcept { ++references; }
    void Release() noexcept
    {
        if (--references > 0)
            return;
        const CModuleReference untilReturn;
        delete this;
    }

    // The node above the root element.
    pugi::xml_node Root() const { return xml.root(); }
    // An element with one reference; null for a null node. May raise std::bad_alloc.
    WalkElement* MakeElement(pugi::xml_node node);

    CChildAttributes& ChildAttributes() { return childAttributes; }
    CSpareMemory& ElementMemory() { return elementMemory; }
    CSpareMemory& ListMemory() { return listMemory; }

private:
    CDocument() = default;
    ~CDocument() = default;

    CModuleReference moduleReference;
    std::size_t references = 1; // the loader's, and one for each element and list
    pugi::xml_document xml;
    CChildAttributes childAttributes;
    CSpareMemory elementMemory;
    CSpareMemory listMemory;
};
