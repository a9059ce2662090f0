// Listings as texts.
#include "platform/mfc/CSingleLock.h"
#include "symbkds/browse/BrowseRequest.h"
#include "symbkds/browse/CVariableListing.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/frame/Guard.h"
#include "symbkds/model/CSymbXMLDDTDef.h"

namespace {

HRESULT ListAsTexts(CSymbXml& table, const ListingOptions& options, LPCSTR browsePath, CStringArray& names)
{
    if (!browsePath || *browsePath == '\0') {
        CVariableListing(table, options).AsTexts(names);
        return S_OK;
    }
    BrowseTarget target;
    if (const HRESULT result = FindBrowseTarget(table, browsePath, target); result != S_OK)
        return result;
    if (options.unlocatedOnly && target.root->HasMemoryAddress())
        return S_OK;
    CListingPage page;
    CWordArray kinds;
    return target.definition->BrowseChildren({options, target, table, page, names, kinds});
}

} // namespace

HRESULT CSymbXml::BrowseSymbols(LPCSTR filter, LPCSTR namePattern, VARTYPE varTypeFilter, LPCSTR browsePath, DWORD,
                                DWORD, BOOL branchesOnly, BOOL wantLeaves, BOOL wantBranches, LONG fieldCount,
                                const char* fieldCodes, CStringArray* names, CStringArray*)
{
    const CSingleLock guard(&lock, TRUE);
    return WithMemoryException([&]() -> HRESULT {
        CheckForNewFile();
        if (!filter || !namePattern || (fieldCount > 0 && !fieldCodes) || !names)
            return E_INVALIDARG;
        HRESULT result = S_OK;
        const auto list = [&] {
            const ListingOptions options(filter, namePattern, varTypeFilter, branchesOnly, wantLeaves, wantBranches,
                                         fieldCount, fieldCodes);
            result = ListAsTexts(*this, options, browsePath, *names);
        };
        // An exception ends the listing: what was appended so far is the answer.
        RunGuarded(list, [](LPCSTR) {});
        return result;
    });
}
