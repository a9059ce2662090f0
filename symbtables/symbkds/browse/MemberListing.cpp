// BrowseChildren of structures and function blocks.
#include "platform/win32/Clock.h"
#include "symb/BrowseElement.h"
#include "symbkds/browse/BrowseRequest.h"
#include "symbkds/browse/EntryText.h"
#include "symbkds/browse/Selection.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/model/CMemberList.h"
#include "symbkds/model/CSymbXMLDDTMember.h"
#include "symbkds/model/CSymbXMLDDTStructDef.h"
#include "symbkds/model/CSymbXMLDFBDef.h"
#include "symbkds/model/ElementaryTypes.h"

#include <optional>

namespace {

// How listing a structure and listing a function block differ.
struct MemberListingRules
{
    bool classifyAnew;         // a member whose name matches gets its type classified again
    bool filterMixed;          // the variant type counts too when leaves and branches are listed together
    bool addressReplacesPlace; // field 'A' is the %MW text alone when there is one, not behind the place
};

struct MemberEntry
{
    CString text;
    WORD kind;
};

// The visible members that a request wants.
class CMemberListing
{
public:
    CMemberListing(CMemberList& listed, const BrowseRequest& listingRequest, const MemberListingRules& listingRules)
        : members(listed), request(listingRequest), rules(listingRules),
          selected(listingRequest.options, {.bothWithoutFlags = true})
    {}

    void Run()
    {
        const int first = FirstPosition();
        // A page leaves the type names of all members as the whole listing does: the first one looks at each of them.
        const bool lookAtAll = !members.AreTypeNamesUpper();
        for (int position = lookAtAll ? 0 : first; position < members.GetCount(); ++position) {
            CSymbXMLDDTMember& member = *members.GetAt(position);
            if (request.page.IsFull() && !lookAtAll)
                return;
            if (member.hidden != 0)
                continue;
            if (position < first || request.page.IsFull())
                member.typeName.MakeUpper();
            else
                ListMember(member);
        }
        members.NoteTypeNamesUpper();
    }

private:
    // The member with which the listing begins; the count of members when no listed one is called so.
    int FirstPosition()
    {
        if (request.page.ResumeAt().IsEmpty())
            return 0;
        int differing = members.GetCount();
        for (int position = 0; position < members.GetCount(); ++position) {
            CSymbXMLDDTMember& member = *members.GetAt(position);
            if (member.hidden != 0 ||
                !request.page.MayResumeAtEntry(member.name, request.options.fieldCodes, member.comment))
                continue;
            const std::optional<MemberEntry> entry = EntryOf(member);
            if (entry && request.page.ResumesAt(entry->text))
                return position;
            if (entry && differing == members.GetCount() && request.page.ResumesButForFieldCase(entry->text))
                differing = position;
        }
        return differing;
    }

    void ListMember(CSymbXMLDDTMember& member)
    {
        Sleep(0); // other threads of the host go on during a long listing
        const std::optional<MemberEntry> entry = EntryOf(member);
        if (!entry || !request.page.Take(entry->text))
            return;
        request.names.Add(entry->text);
        request.kinds.Add(entry->kind);
    }

    // The member's entry, if it is wanted. Makes its type name upper case either way.
    std::optional<MemberEntry> EntryOf(CSymbXMLDDTMember& member)
    {
        const CString typeName = member.typeName;
        CString addressField;
        const std::string_view codes = request.options.fieldCodes;
        if (codes.find('A') != std::string_view::npos)
            addressField = AddressField(member, typeName); // before the member is classified anew

        const bool leaf = IsElementary(member.typeName);
        if (!request.options.AcceptsName(member.name))
            return std::nullopt;
        if (rules.classifyAnew)
            member.SetTypeName(member.typeName, &request.symbolTable.GetTypes());
        if (!IsWanted(member, leaf))
            return std::nullopt;
        return MemberEntry{MakeEntryText(member.name, codes, member.comment, addressField),
                           static_cast<WORD>(leaf ? BrowseElement::kLeaf : BrowseElement::kBranch)};
    }

    // `typeName` is the member's type name as it was before this listing looked at it.
    CString AddressField(const CSymbXMLDDTMember& member, const CString& typeName) const
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

    bool IsWanted(const CSymbXMLDDTMember& member, bool leaf) const
    {
        if (selected.leaves && selected.branches)
            return !rules.filterMixed || request.options.AcceptsVarType(member.varType);
        if (selected.leaves)
            return leaf && request.options.AcceptsVarType(member.varType);
        return !leaf && request.symbolTable.GetTypes().IsDerivedType(member.typeName);
    }

    CMemberList& members;
    const BrowseRequest& request;
    const MemberListingRules rules;
    const Selection selected;
};

} // namespace

HRESULT CSymbXMLDDTStructDef::BrowseChildren(const BrowseRequest& request)
{
    CMemberListing(members, request, {.classifyAnew = true, .filterMixed = true, .addressReplacesPlace = false}).Run();
    return S_OK;
}

HRESULT CSymbXMLDFBDef::BrowseChildren(const BrowseRequest& request)
{
    CMemberListing(members, request, {.classifyAnew = false, .filterMixed = false, .addressReplacesPlace = true}).Run();
    return S_OK;
}
