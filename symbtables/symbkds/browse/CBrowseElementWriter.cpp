#include "symbkds/browse/CBrowseElementWriter.h"

#include "platform/com/TaskMemory.h"
#include "symbkds/model/WideToUtf8.h"

#include <limits>
#include <utility>

namespace {

constexpr std::uint64_t kSpareElements = 1000;

} // namespace

CBrowseElementWriter::CBrowseElementWriter(const HostElements& hostElements, CItemIds identifiers)
    : host(hostElements), itemIds(std::move(identifiers)),
      resumeAt(host.continuationPoint ? WideToUtf8(*host.continuationPoint) : CString()),
      targetIndex(*host.elementCount)
{}

CListingPage CBrowseElementWriter::GetPage() const
{
    if (!HasLimit())
        return {resumeAt, std::numeric_limits<std::uint64_t>::max(), itemIds.HeadUnits()};
    const std::uint32_t room = host.maxElements > targetIndex ? host.maxElements - targetIndex : 0;
    return {resumeAt, std::uint64_t{room} + 1, itemIds.HeadUnits()};
}

bool CBrowseElementWriter::EnsureElementCapacity(std::uint32_t candidates)
{
    const std::uint64_t needed = std::uint64_t{candidates} + targetIndex;
    const std::uint64_t capacity = *host.elements ? *host.elementCapacity : 0;
    if (HasLimit() || needed <= capacity)
        return true;
    const std::uint64_t larger = needed + kSpareElements;
    const std::uint64_t wantedBytes = larger * sizeof(BrowseElement);
    const auto bytes = static_cast<std::size_t>(wantedBytes); // loses bits only where no block can be that large
    void* grown = nullptr;
    if (larger <= std::numeric_limits<DWORD>::max() && bytes == wantedBytes)
        grown = CoTaskMemRealloc(*host.elements, bytes);
    if (!grown) {
        result = E_OUTOFMEMORY;
        return false;
    }
    *host.elements = static_cast<BrowseElement*>(grown);
    *host.elementCapacity = static_cast<DWORD>(larger);
    return true;
}

bool CBrowseElementWriter::AddBrowseElement(const CString& entry, DWORD kind)
{
    if (HasLimit() && targetIndex >= host.maxElements)
        return CutListing(entry);
    TaskText name = MakeTaskText(entry.View());
    TaskText itemId = name.text ? itemIds.BuildItemId(name) : TaskText();
    if (!itemId.text) {
        result = E_OUTOFMEMORY;
        return true;
    }
    BrowseElement& element = (*host.elements)[targetIndex];
    element = {};
    element.name = name.text.release(); // from here on the host frees both texts
    element.itemId = itemId.text.release();
    element.kind = kind;
    ++targetIndex;
    ++*host.elementCount;
    return false;
}

bool CBrowseElementWriter::CutListing(const CString& entry)
{
    TaskText name;
    if (host.continuationPoint) {
        name = MakeTaskText(entry.View());
        if (!name.text) {
            result = E_OUTOFMEMORY;
            return true;
        }
        *host.continuationPoint = name.text.release(); // the text passed in stays the host's
    }
    *host.moreElements = 1;
    *host.elementCount = host.maxElements;
    return true;
}

void CBrowseElementWriter::FillBrowseElements(const CStringArray& entries, const CWordArray& kinds)
{
    for (int i = 0; i < entries.GetSize(); ++i)
        if (AddBrowseElement(entries[i], i < kinds.GetSize() ? kinds[i] : BrowseElement::kLeaf))
            return;
}
