// BrowseChildren of arrays.
#include "platform/win32/Clock.h"
#include "symb/BrowseElement.h"
#include "symbkds/browse/BrowseRequest.h"
#include "symbkds/browse/EntryText.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/model/CSymbXMLDDTArrayDef.h"
#include "symbkds/model/ElementaryTypes.h"
#include "symbkds/model/TextNumber.h"

#include <algorithm>

namespace {

// A damaged export may declare billions of elements; no listing considers more than these.
constexpr std::uint32_t kMaxListedElements = 1'048'576;

// What an array listing knows about its elements.
class CElementListing
{
public:
    CElementListing(const BrowseRequest& listingRequest, const ArrayBounds& arrayBounds, std::uint32_t sizeBytes,
                    std::uint32_t typeCode, const CString& typeName, DWORD entryKind)
        : request(listingRequest), bounds(arrayBounds), elementSize(sizeBytes), elementCode(typeCode),
          elementTypeName(typeName), kind(static_cast<WORD>(entryKind))
    {}

    void Run()
    {
        const std::uint32_t considered = std::min(bounds.ElementCount(), kMaxListedElements);
        std::uint64_t left = request.window ? request.window->entryLimit : considered;
        for (std::uint32_t number = FirstNumber(considered); number < considered && left > 0; ++number) {
            Sleep(0); // other threads of the host go on during a long listing
            const CString name = NameOf(number);
            if (!request.options.AcceptsName(name))
                continue;
            request.names.Add(EntryOf(number, name));
            request.kinds.Add(kind);
            --left;
        }
    }

private:
    // The element with which a page begins; `considered` when no element is called so.
    std::uint32_t FirstNumber(std::uint32_t considered) const
    {
        if (!request.window || request.window->resumeAt.IsEmpty())
            return 0;
        const CString& resumeAt = request.window->resumeAt;
        const std::size_t bracket = request.target.prefix.View().size();
        if (resumeAt.View().size() <= bracket || resumeAt.View()[bracket] != '[')
            return considered;
        const std::int64_t number =
            std::int64_t{ParseNumber(static_cast<LPCSTR>(resumeAt) + bracket + 1)} - bounds.lower;
        if (number < 0 || number >= considered)
            return considered;
        const auto candidate = static_cast<std::uint32_t>(number);
        const CString name = NameOf(candidate);
        const bool listed = request.options.AcceptsName(name);
        return listed && AsContinuationPoint(EntryOf(candidate, name)) == resumeAt ? candidate : considered;
    }

    CString NameOf(std::uint32_t number) const
    {
        CString name = request.target.prefix;
        name.AppendFormat("[%d]", static_cast<int>(bounds.lower + std::int64_t{number}));
        return name;
    }

    CString EntryOf(std::uint32_t number, const CString& name) const
    {
        const std::string_view codes = request.options.fieldCodes;
        CString address;
        if (codes.find('A') != std::string_view::npos)
            address = AddressField(number);
        return MakeEntryText(name, codes, CString(), address);
    }

    CString AddressField(std::uint32_t number) const
    {
        const BrowseTarget& target = request.target;
        const std::uint32_t offset = number * elementSize + target.offset;
        CString address;
        request.symbolTable.FormatMemoryAddress(AddressDescriptor::kDirect, target.block, offset,
                                                AddressDescriptor::kNoBit, static_cast<std::int32_t>(elementSize),
                                                elementCode, address);
        return MakeUnlocatedField(elementTypeName, target.block, offset, address);
    }

    const BrowseRequest& request;
    const ArrayBounds bounds;
    const std::uint32_t elementSize;
    const std::uint32_t elementCode;
    const CString elementTypeName; // as shown to people
    const WORD kind;
};

} // namespace

HRESULT CSymbXMLDDTArrayDef::BrowseChildren(const BrowseRequest& request)
{
    std::uint32_t elementarySize = 0;
    std::uint32_t elementCode = 0;
    const bool leaf = ClassifyElementaryType(elementTypeName, elementarySize, elementCode);
    CSymbXMLDDTDef* element = nullptr;
    const bool known = request.symbolTable.GetTypes().FindTypeDef(elementTypeName, element);
    const std::uint32_t count = FirstBounds().ElementCount();
    if (count == 0)
        return S_OK;

    const ListingOptions& options = request.options;
    const bool asBranches = (options.branchesOnly || options.wantBranches) && !leaf && known;
    const bool asLeaves = options.wantLeaves && (leaf || !known) && options.AcceptsVarType(elementVarType);
    if (asBranches || asLeaves)
        CElementListing(request, FirstBounds(), request.target.size / count, elementCode,
                        !leaf && known ? element->GetDisplayName() : elementTypeName,
                        leaf ? BrowseElement::kLeaf : BrowseElement::kBranch)
            .Run();
    return S_OK;
}
