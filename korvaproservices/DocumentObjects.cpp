// The part of CDocument that knows the objects of its pools.
#include "korvaproservices/CDocument.h"
#include "korvaproservices/CElement.h"
#include "korvaproservices/CElementList.h"

CDocument::CDocument() = default;
CDocument::~CDocument() = default;

void CDocument::Release() noexcept
{
    if (--references == 0)
        delete this;
}

WalkElement* CDocument::MakeElement(pugi::xml_node node)
{
    if (!node)
        return nullptr;
    CElement* element = idleElements.Take();
    if (!element)
        element = new CElement(*this);
    element->Begin(node);
    AddRef();
    return element;
}

CInterfacePtr<CElementList> CDocument::MakeList()
{
    CElementList* list = idleLists.Take();
    if (!list)
        list = new CElementList(*this);
    list->Begin();
    AddRef();
    CInterfacePtr<CElementList> made;
    *made.Put() = list;
    return made;
}

void CDocument::Recycle(CElement* element) noexcept
{
    idleElements.Put(element);
    Release();
}

void CDocument::Recycle(CElementList* list) noexcept
{
    idleLists.Put(list);
    Release();
}
