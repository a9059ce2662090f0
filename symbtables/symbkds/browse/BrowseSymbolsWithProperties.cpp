// Listings as records with item identifiers.
#include "platform/mfc/CSingleLock.h"
#include "symbkds/browse/BrowseRequest.h"
#include "symbkds/browse/CBrowseElementWriter.h"
#include "symbkds/browse/EntryText.h"
#include "symbkds/browse/VariableCursor.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/frame/Guard.h"
#include "symbkds/model/CSymbXMLDDTDef.h"
#include "symbkds/model/UpperCase.h"

namespace {

// Whether the host's variables can take what a listing may store.
bool IsUsable(const HostElements& host)
{
    if (!host.moreElements || !host.elementCount || !host.elements || !host.elementCapacity)
        return false;
    return *host.elements || (host.maxElements == 0 && *host.elementCount == 0);
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
        CBrowseElementWriter writer(host, browsePath, parentId);
        if (browsePath && *browsePath != '\0')
            return ListChildrenWithProperties(options, browsePath, writer);
        ListVariablesWithProperties(options, writer);
        return writer.GetResult();
    });
}

HRESULT CSymbXml::ListChildrenWithProperties(const ListingOptions& options, LPCSTR browsePath,
                                             CBrowseElementWriter& writer)
{
    BrowseTarget target;
    if (const HRESULT result = FindBrowseTarget(browsePath, target); result != S_OK)
        return result;
    if (options.unlocatedOnly && target.root->topologicalAddress.Find('%') >= 0)
        return S_OK;
    CStringArray names;
    CWordArray kinds;
    // One entry more than fit tells where the next page begins.
    const BrowseWindow window{writer.GetResumeAt(), std::uint64_t{writer.RoomLeft()} + 1};
    const HRESULT result = target.definition->BrowseChildren(
        {options, target, *this, names, kinds, writer.HasLimit() ? &window : nullptr});
    if (writer.EnsureElementCapacity(static_cast<std::uint32_t>(names.GetSize())))
        writer.FillBrowseElements(names, kinds);
    return FAILED(writer.GetResult()) ? writer.GetResult() : result;
}

void CSymbXml::ListVariablesWithProperties(const ListingOptions& options, CBrowseElementWriter& writer)
{
    if (!writer.EnsureElementCapacity(static_cast<std::uint32_t>(variables.GetCount())))
        return;
    CVariableCursor cursor(variables, FirstToList(options, writer.GetResumeAt()));
    while (const CSymbXMLItemDef* next = cursor.Next()) {
        const CSymbXMLItemDef& variable = *next;
        if (!PassesRootFilters(variable, options))
            continue;
        const bool elementary = variable.IsElementaryScalar();
        const bool branch = !elementary && IsOfDerivedType(variable);
        const bool wanted = options.branchesOnly
                                ? branch
                                : (options.wantBranches && options.wantLeaves) || (options.wantBranches && branch) ||
                                      (options.wantLeaves && elementary);
        if (wanted && writer.AddBrowseElement(variable.name, branch ? BrowseElement::kBranch : BrowseElement::kLeaf))
            return;
    }
}

const CSymbXml::Variables::CPair* CSymbXml::FirstToList(const ListingOptions& options, const CString& resumeAt) const
{
    if (resumeAt.IsEmpty())
        return variables.PGetFirstAssoc();
    const auto* pair = variables.PLookup(CUpperName(resumeAt));
    const bool listed = pair && pair->value->name == resumeAt && PassesRootFilters(*pair->value, options);
    return listed ? pair : nullptr;
}

bool CSymbXml::PassesRootFilters(const CSymbXMLItemDef& variable, const ListingOptions& options)
{
    return options.AcceptsVarType(variable.varType) &&
           !(options.unlocatedOnly && !variable.topologicalAddress.IsEmpty()) && options.AcceptsName(variable.name);
}
