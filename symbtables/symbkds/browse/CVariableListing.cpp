#include "symbkds/browse/CVariableListing.h"

#include "platform/mfc/CMapWalk.h"
#include "platform/win32/Clock.h"
#include "symbkds/browse/CBrowseElementWriter.h"
#include "symbkds/browse/EntryText.h"
#include "symbkds/browse/Selection.h"
#include "symbkds/model/CSymbXMLDDTDef.h"
#include "symbkds/model/CUpperName.h"

void CVariableListing::AsTexts(CStringArray& names) const
{
    const Selection selected(options, {.branchesOnRequest = false});
    const CSymbXml::Variables& variables = table.GetVariables();
    CListingPage page;
    CMapWalk walk(variables, variables.PGetFirstAssoc(), &CSymbXMLItemDef::name);
    while (const CSymbXMLItemDef* next = page.IsFull() ? nullptr : walk.Next()) {
        Sleep(0); // other threads of the host go on during a long listing
        const CSymbXMLItemDef& variable = *next;
        if (!MayBeText(variable))
            continue;
        // Only what a plain name serves is a leaf here.
        const bool leaf = variable.IsElementaryScalar() && variable.IsBitOrWordType();
        const bool wanted = (selected.leaves && leaf && !table.GetTypes().IsRegisteredDFB(variable.typeName)) ||
                            (selected.branches && IsBranch(variable));
        const CString address = wanted ? AddressOf(variable) : CString();
        if (address.IsEmpty())
            continue;
        const CString entry = MakeEntryText(variable.name, options.fieldCodes, variable.comment, address);
        if (page.Take(entry))
            names.Add(entry);
    }
}

void CVariableListing::AsRecords(CBrowseElementWriter& writer) const
{
    const Selection selected(options, {});
    CMapWalk walk(table.GetVariables(), FirstRecord(writer.GetResumeAt()), &CSymbXMLItemDef::name);
    while (const CSymbXMLItemDef* next = walk.Next()) {
        const CSymbXMLItemDef& variable = *next;
        if (!MayBeRecord(variable))
            continue;
        const bool branch = IsBranch(variable);
        if ((branch ? selected.branches : selected.leaves) &&
            writer.AddBrowseElement(variable.name, branch ? BrowseElement::kBranch : BrowseElement::kLeaf))
            return;
    }
}

// The variable with which the records begin or resume; null when no listed variable has exactly that name.
const CSymbXml::Variables::CPair* CVariableListing::FirstRecord(const CString& resumeAt) const
{
    const CSymbXml::Variables& variables = table.GetVariables();
    if (resumeAt.IsEmpty())
        return variables.PGetFirstAssoc();
    const auto* pair = variables.PLookup(CUpperName(resumeAt));
    return pair && pair->value->name == resumeAt && MayBeRecord(*pair->value) ? pair : nullptr;
}

bool CVariableListing::MayBeText(const CSymbXMLItemDef& variable) const
{
    return options.AcceptsVarType(variable.varType) && !(options.unlocatedOnly && variable.HasMemoryAddress()) &&
           options.AcceptsName(variable.name);
}

bool CVariableListing::MayBeRecord(const CSymbXMLItemDef& variable) const
{
    return options.AcceptsVarType(variable.varType) && !(options.unlocatedOnly && variable.IsLocated()) &&
           options.AcceptsName(variable.name);
}

bool CVariableListing::IsBranch(const CSymbXMLItemDef& variable) const
{
    if (variable.IsElementaryScalar())
        return false;
    // A declared text tells that the import found the type; from then on it stays known.
    return !variable.declaredTypeText.IsEmpty() || table.GetTypes().FindRegistered(variable.typeName);
}

CString CVariableListing::AddressOf(const CSymbXMLItemDef& variable) const
{
    if (variable.IsLocated())
        return variable.topologicalAddress;
    CString address;
    table.FormatMemoryAddress(AddressDescriptor::kDirect, variable.block, variable.offset, variable.extractBit,
                              static_cast<std::int32_t>(variable.size), variable.typeCode, address);
    return address;
}
