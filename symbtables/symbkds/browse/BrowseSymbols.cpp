// Listings as texts.
#include "platform/mfc/CSingleLock.h"
#include "platform/win32/Clock.h"
#include "symbkds/browse/BrowseRequest.h"
#include "symbkds/browse/EntryText.h"
#include "symbkds/browse/VariableCursor.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/frame/Guard.h"
#include "symbkds/model/CSymbXMLDDTDef.h"

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
            result = ListAsTexts(options, browsePath, *names);
        };
        // An exception ends the listing: what was appended so far is the answer.
        RunGuarded(list, [](LPCSTR) {});
        return result;
    });
}

HRESULT CSymbXml::ListAsTexts(const ListingOptions& options, LPCSTR browsePath, CStringArray& names)
{
    if (!browsePath || *browsePath == '\0') {
        ListVariables(options, names);
        return S_OK;
    }
    BrowseTarget target;
    if (const HRESULT result = FindBrowseTarget(browsePath, target); result != S_OK)
        return result;
    if (options.unlocatedOnly && target.root->topologicalAddress.Find('%') >= 0)
        return S_OK;
    CWordArray kinds;
    return target.definition->BrowseChildren({options, target, *this, names, kinds});
}

void CSymbXml::ListVariables(const ListingOptions& options, CStringArray& names)
{
    CVariableCursor cursor(variables, variables.PGetFirstAssoc());
    while (const CSymbXMLItemDef* next = cursor.Next()) {
        Sleep(0); // other threads of the host go on during a long listing
        const CSymbXMLItemDef& variable = *next;
        if (!options.AcceptsVarType(variable.varType) ||
            (options.unlocatedOnly && variable.topologicalAddress.Find('%') >= 0) ||
            !options.AcceptsName(variable.name) || !IsListedAsText(variable, options))
            continue;
        const CString address = AddressOf(variable);
        if (!address.IsEmpty())
            names.Add(MakeEntryText(variable.name, options.fieldCodes, variable.comment, address));
    }
}

CString CSymbXml::AddressOf(const CSymbXMLItemDef& variable) const
{
    if (!variable.topologicalAddress.IsEmpty())
        return variable.topologicalAddress;
    CString address;
    FormatMemoryAddress(AddressDescriptor::kDirect, variable.block, variable.offset, variable.extractBit,
                        static_cast<std::int32_t>(variable.size), variable.typeCode, address);
    return address;
}

bool CSymbXml::IsListedAsText(const CSymbXMLItemDef& variable, const ListingOptions& options)
{
    if (options.branchesOnly)
        return !variable.IsElementaryScalar() && IsOfDerivedType(variable);
    // Only what a plain name serves is a leaf here.
    return options.wantLeaves && variable.IsElementaryScalar() && variable.IsBitOrWordType() &&
           !types.IsDFBType(variable.typeName);
}

bool CSymbXml::IsOfDerivedType(const CSymbXMLItemDef& variable)
{
    // A declared text tells that the import found the type; from then on it stays known.
    return !variable.declaredTypeText.IsEmpty() || types.IsDerivedType(variable.typeName);
}
