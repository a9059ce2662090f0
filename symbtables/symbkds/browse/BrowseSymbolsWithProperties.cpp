// Listings as records with item identifiers.
#include "platform/mfc/CSingleLock.h"
#include "symbkds/browse/BrowseRequest.h"
#include "symbkds/browse/CBrowseElementWriter.h"
#include "symbkds/browse/CVariableListing.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/frame/Guard.h"
#include "symbkds/model/CSymbXMLDDTDef.h"

namespace {

// Whether the host's variables can take what a listing may store.
bool IsUsable(const HostElements& host)
{
    if (!host.moreElements || !host.elementCount || !host.elements || !host.elementCapacity)
        return false;
    return *host.elements || (host.maxElements == 0 && *host.elementCount == 0);
}

HRESULT ListVariables(const CSymbXml& table, const ListingOptions& options, CBrowseElementWriter& writer)
{
    if (writer.EnsureElementCapacity(static_cast<std::uint32_t>(table.GetVariables().GetCount())))
        CVariableListing(table, options).AsRecords(writer);
    return writer.GetResult();
}

HRESULT ListChildren(CSymbXml& table, const ListingOptions& options, LPCSTR browsePath, LPCWSTR parentId,
                     const HostElements& host)
{
    BrowseTarget target;
    if (const HRESULT result = FindBrowseTarget(table, browsePath, target); result != S_OK)
        return result;
    if (options.unlocatedOnly && target.root->HasMemoryAddress())
        return S_OK;
    CBrowseElementWriter writer(host, target.definition->IsArray()
                                          ? CItemIds::OfElements(parentId, browsePath, target.prefix)
                                          : CItemIds::OfMembers(parentId));
    CStringArray names;
    CWordArray kinds;
    CListingPage page = writer.GetPage();
    const HRESULT result = target.definition->BrowseChildren({options, target, table, page, names, kinds});
    if (writer.EnsureElementCapacity(static_cast<std::uint32_t>(names.GetSize())))
        writer.FillBrowseElements(names, kinds);
    return FAILED(writer.GetResult()) ? writer.GetResult() : result;
}

} // namespace

HRESULT CSymbXml::BrowseSymbolsWithProperties(LPCSTR filter, LPCSTR namePattern, VARTYPE varTypeFilter,
                                              LPCSTR browsePath, DWORD, DWORD, BOOL branchesOnly, BOOL wantLeaves,
                                              BOOL wantBranches, LONG fieldCount, const char* fieldCodes,
                                              LPCWSTR parentId, LPWSTR* continuationPoint, DWORD maxElements, DWORD,
                                              DWORD, DWORD, DWORD, DWORD* moreElements, DWORD* elementCount,
                                              BrowseElement** elements, DWORD* elementCapacity, CStringArray*)
{
    const CSingleLock guard(&lock, TRUE);
    return WithMemoryException([&]() -> HRESULT {
        const ListingOptions options(filter, namePattern, varTypeFilter, branchesOnly, wantLeaves, wantBranches,
                                     fieldCount, fieldCodes);
        CheckForNewFile();
        const HostElements host{maxElements, continuationPoint, moreElements, elementCount, elements, elementCapacity};
        if (!IsUsable(host) || (fieldCount > 0 && !fieldCodes))
            return E_INVALIDARG;
        if (browsePath && *browsePath != '\0')
            return ListChildren(*this, options, browsePath, parentId, host);
        CBrowseElementWriter writer(host, CItemIds::OfVariables(parentId));
        return ListVariables(*this, options, writer);
    });
}
