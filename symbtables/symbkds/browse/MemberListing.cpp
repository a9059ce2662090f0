// BrowseChildren of structures and function blocks.
#include "platform/win32/Clock.h"
#include "symb/BrowseElement.h"
#include "symbkds/browse/BrowseRequest.h"
#include "symbkds/browse/EntryText.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/model/CMemberList.h"
#include "symbkds/model/CSymbXMLDDTMember.h"
#include "symbkds/model/CSymbXMLDDTStructDef.h"
#include "symbkds/model/CSymbXMLDFBDef.h"
#include "symbkds/model/ElementaryTypes.h"

namespace {

// How listing a structure and listing a function block differ.
struct MemberListingRules
{
    bool classifyAnew;         // a member whose name matches gets its type classified again
    bool filterMixed;          // the variant type counts too when leaves and branches are listed together
    bool addressReplacesPlace; // field 'A' is the %MW text alone when there is one, not behind the place
};

bool IsWanted(const CSymbXMLDDTMember& member, bool leaf, const BrowseRequest& request, bool filterMixed)
{
    const ListingOptions& options = request.options;
    if (options.wantLeaves && !options.branchesOnly && !options.wantBranches)
        return leaf && options.AcceptsVarType(member.varType);
    if (options.branchesOnly || (options.wantBranches && !options.wantLeaves))
        return !leaf && request.symbolTable.GetTypes().IsDerivedType(member.typeName);
    return !filterMixed || options.AcceptsVarType(member.varType);
}

// `typeName` is the member's type name as it was before this listing looked at it.
CString AddressField(const CSymbXMLDDTMember& member, const CString& typeName, const BrowseRequest& request,
                     const MemberListingRules& rules)
{
    const std::uint32_t block = std::uint32_t{request.target.block} + member.block;
    const std::uint32_t offset = request.target.offset + member.offset;
    CString address;
    request.symbolTable.FormatMemoryAddress(member.indirectionKind, static_cast<std::uint16_t>(block), offset,
                                            AddressDescriptor::kNoBit, static_cast<std::int32_t>(member.size),
                                            member.typeCode, address);
    if (rules.addressReplacesPlace && !address.IsEmpty())
        return address;
    return MakeUnlocatedField(typeName, block, offset, address);
}

void ListMember(CSymbXMLDDTMember& member, const BrowseRequest& request, const MemberListingRules& rules)
{
    const CString typeName = member.typeName;
    CString addressField;
    const std::string_view codes = request.options.fieldCodes;
    if (codes.find('A') != std::string_view::npos)
        addressField = AddressField(member, typeName, request, rules); // before the member is classified anew

    std::uint32_t size = 0;
    std::uint32_t typeCode = 0;
    const bool leaf = ClassifyElementaryType(member.typeName, size, typeCode);
    if (!request.options.AcceptsName(member.name))
        return;
    if (rules.classifyAnew)
        member.SetTypeName(member.typeName, &request.symbolTable.GetTypes());
    if (!IsWanted(member, leaf, request, rules.filterMixed))
        return;
    request.names.Add(MakeEntryText(member.name, codes, member.comment, addressField));
    request.kinds.Add(static_cast<WORD>(leaf ? BrowseElement::kLeaf : BrowseElement::kBranch));
}

// Appends the visible members that the request wants.
void ListMembers(const CMemberList& members, const BrowseRequest& request, const MemberListingRules& rules)
{
    for (int position = 0; position < members.GetCount(); ++position) {
        Sleep(0); // other threads of the host go on during a long listing
        CSymbXMLDDTMember& member = *members.GetAt(position);
        if (member.hidden == 0)
            ListMember(member, request, rules);
    }
}

} // namespace

HRESULT CSymbXMLDDTStructDef::BrowseChildren(const BrowseRequest& request)
{
    ListMembers(members, request, {.classifyAnew = true, .filterMixed = true, .addressReplacesPlace = false});
    return S_OK;
}

HRESULT CSymbXMLDFBDef::BrowseChildren(const BrowseRequest& request)
{
    ListMembers(members, request, {.classifyAnew = false, .filterMixed = false, .addressReplacesPlace = true});
    return S_OK;
}
