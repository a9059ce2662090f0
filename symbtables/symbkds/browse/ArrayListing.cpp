// BrowseChildren of arrays.
#include "platform/win32/Clock.h"
#include "symb/BrowseElement.h"
#include "symbkds/browse/BrowseRequest.h"
#include "symbkds/browse/EntryText.h"
#include "symbkds/browse/Selection.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/model/CSymbXMLDDTArrayDef.h"
#include "symbkds/model/ElementaryTypes.h"
#include "symbkds/model/TextNumber.h"
#include "symbkds/model/TypeCodes.h"
#include "symbkds/model/WideToUtf8.h"

#include <algorithm>
#include <array>
#include <charconv>

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
        for (std::uint32_t number = FirstNumber(considered); number < considered && !request.page.IsFull(); ++number) {
            Sleep(0); // other threads of the host go on during a long listing
            const CString name = NameOf(number);
            if (!request.options.AcceptsName(name))
                continue;
            const CString entry = EntryOf(number, name);
            if (!request.page.Take(entry))
                return;
            request.names.Add(entry);
            request.kinds.Add(kind);
        }
    }

private:
    // The element with which the listing begins; `considered` when no listed element is called so.
    std::uint32_t FirstNumber(std::uint32_t considered) const
    {
        const CString& resumeAt = request.page.ResumeAt();
        if (resumeAt.IsEmpty())
            return 0;
        const std::size_t bracket = request.target.prefix.View().size();
        if (resumeAt.View().size() <= bracket || resumeAt.View()[bracket] != '[')
            return considered;
        const std::int64_t number =
            std::int64_t{ParseNumber(static_cast<LPCSTR>(resumeAt) + bracket + 1)} - bounds.lower;
        if (number < 0 || number >= considered)
            return considered;
        const auto candidate = static_cast<std::uint32_t>(number);
        const CString name = NameOf(candidate);
        // A point that was cut inside its index could mean several elements, and lead back to an earlier one for ever.
        const bool listed = name.GetLength() <= kMaxUtf8Bytes && request.options.AcceptsName(name);
        return listed && request.page.ResumesAt(EntryOf(candidate, name)) ? candidate : considered;
    }

    CString NameOf(std::uint32_t number) const
    {
        std::array<char, sizeof "[-2147483648]"> index{'['};
        char* end =
            std::to_chars(index.data() + 1, index.data() + index.size(), bounds.lower + std::int64_t{number}).ptr;
        *end++ = ']';
        *end = '\0';
        return request.target.prefix + index.data();
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
    const std::uint32_t elementCode = ElementaryCodeOf(elementTypeName);
    const bool leaf = elementCode != kUnclassifiedCode;
    CSymbXMLDDTDef* element = nullptr;
    const bool known = request.symbolTable.GetTypes().FindTypeDef(elementTypeName, element);
    const std::uint32_t count = FirstBounds().ElementCount();
    if (count == 0)
        return S_OK;

    const Selection selected(request.options, {.leavesBesideBranchesOnly = true});
    const bool branch = !leaf && known; // elements of an unknown type count as leaves
    if (branch ? selected.branches : selected.leaves && request.options.AcceptsVarType(elementVarType))
        CElementListing(request, FirstBounds(), request.target.size / count, elementCode,
                        branch ? element->GetDisplayName() : elementTypeName,
                        leaf ? BrowseElement::kLeaf : BrowseElement::kBranch)
            .Run();
    return S_OK;
}
