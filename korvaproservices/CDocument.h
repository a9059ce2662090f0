#pragma once

#include "korvaproservices/CChildAttributes.h"
#include "korvaproservices/CFreeList.h"
#include "korvaproservices/CModuleReference.h"
#include "korvaproservices/CTagIndex.h"
#include "korvaproservices/KorvaProServices.h"
#include "platform/mfc/CInterfacePtr.h"

#include <pugixml.hpp>

class CElement;
class CElementList;

// A loaded export and the pool of the elements and lists that look at it.
//
// Lives as long as the component or any element or list refers to it. It is
// used by one thread at a time, as all interfaces of one component are, so its
// own count and the pools need no lock.
class CDocument
{
public:
    // Reads and parses the file into `loaded`, which stays empty on failure; the
    // results are those of ImportFile. May raise std::bad_alloc.
    static HRESULT Load(LPCWSTR path, CInterfacePtr<CDocument>& loaded);

    CDocument(const CDocument&) = delete;
    CDocument& operator=(const CDocument&) = delete;

    void AddRef() noexcept { ++references; }
    void Release() noexcept;

    // The node above the root element.
    pugi::xml_node Root() const { return xml.root(); }

    // An element for `node` with one reference; null for a null node. Both may raise std::bad_alloc.
    WalkElement* MakeElement(pugi::xml_node node);
    // A list whose selection is still to be set.
    CInterfacePtr<CElementList> MakeList();

    CChildAttributes& ChildAttributes() { return childAttributes; }
    CTagIndex& TagIndex() { return tagIndex; }

    // Take back what nobody refers to any more. The document may be gone afterwards.
    void Recycle(CElement* element) noexcept;
    void Recycle(CElementList* list) noexcept;

private:
    CDocument();
    ~CDocument();

    CModuleReference moduleReference;
    std::size_t references = 1; // the loader's, and one for each element and list in use
    pugi::xml_document xml;
    CChildAttributes childAttributes;
    CTagIndex tagIndex;
    CFreeList<CElement> idleElements;
    CFreeList<CElementList> idleLists;
};
