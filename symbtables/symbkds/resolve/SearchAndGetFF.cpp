// The lookup: from a symbol's name to its address.
#include "platform/mfc/CSingleLock.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/frame/Guard.h"
#include "symbkds/model/CSymbXMLDDTDef.h"
#include "symbkds/model/TextNumber.h"
#include "symbkds/model/TypeCodes.h"
#include "symbkds/resolve/CSymbKorvaAnalyser.h"
#include "symbkds/resolve/ResolvedSymbol.h"

namespace {

constexpr DWORD kHighestSelector = 1;
constexpr std::uint32_t kWordBytes = 2;
constexpr std::uint8_t kHighestBit = 15;
constexpr std::uint8_t kBitsPerByte = 8;

// The descriptor of a whole variable.
AddressDescriptor DescribeVariable(const CSymbXMLItemDef& variable)
{
    AddressDescriptor descriptor{};
    descriptor.typeCode = variable.typeCode;
    descriptor.extraction = AddressDescriptor::kExtractWhole;
    descriptor.indirection = AddressDescriptor::kDirect;
    descriptor.block = variable.block;
    descriptor.offset = variable.offset;
    descriptor.size = variable.size;
    descriptor.bit = AddressDescriptor::kNoBit;
    descriptor.reserved40 = 1;
    return descriptor;
}

void SetBit(AddressDescriptor& descriptor, std::uint8_t bit)
{
    descriptor.extraction = AddressDescriptor::kExtractBit;
    descriptor.bit = bit;
    descriptor.typeCode = kBoolCode;
}

// Narrows the descriptor to the bit that a path's last step asks for. False when the value has no such bit.
bool ExtractAskedBit(AddressDescriptor& descriptor, const CSymbKorvaAnalysedItem& step)
{
    const auto bit = static_cast<std::uint8_t>(ParseNumber(static_cast<LPCSTR>(step.index)));
    if (descriptor.size != kWordBytes || bit > kHighestBit)
        return false;
    SetBit(descriptor, bit);
    return true;
}

// Narrows the descriptor of a variable that is itself one bit of a word. The
// descriptor then describes the whole word: an odd offset means its upper half.
void ExtractOwnBit(AddressDescriptor& descriptor, std::uint8_t bit)
{
    if (descriptor.offset % 2 != 0) {
        descriptor.offset -= 1;
        bit = static_cast<std::uint8_t>(bit + kBitsPerByte);
    }
    SetBit(descriptor, bit);
    descriptor.size = kWordBytes;
}

HRESULT ResolvePlainName(const CSymbXml& table, const CSymbKorvaAnalyser& path, const CString& nameAsAsked,
                         ResolvedSymbol& symbol)
{
    const CSymbKorvaAnalysedItem& step = path.GetItem(0);
    const CSymbXMLItemDef* variable = table.FindVariable(step.name);
    if (!variable) {
        table.SendTrace(messages::kNameNotFound, {table.GetSourcePath(), nameAsAsked});
        return CSymb::kLookupFailed;
    }
    if (!variable->IsLocated() || !variable->IsElementaryScalar() || !variable->IsBitOrWordType()) {
        table.SendTrace(messages::kNotAnimable, {table.GetSourcePath()});
        return CSymb::kLookupFailed;
    }
    AddressDescriptor& descriptor = symbol.descriptor;
    descriptor = DescribeVariable(*variable);
    descriptor.accessRight = variable->accessRights;
    symbol.address = variable->topologicalAddress;
    if (step.hasNumber) {
        if (!ExtractAskedBit(descriptor, step))
            return CSymb::kLookupFailed;
        symbol.address += '.';
        symbol.address += step.index;
    } else if (variable->extractBit != CSymbXMLItemDef::kNoExtractBit) {
        ExtractOwnBit(descriptor, variable->extractBit);
    }
    symbol.hasAddressProperty = true;
    symbol.comment = variable->comment;
    symbol.typeName = variable->GetDisplayTypeName();
    symbol.customerString = variable->customerString;
    return S_OK;
}

HRESULT ResolveCompoundPath(CSymbXml& table, const CSymbKorvaAnalyser& path, ResolvedSymbol& symbol)
{
    CString rootName;
    path.GetItemName(0, rootName);
    const CSymbXMLItemDef* variable = table.FindVariable(rootName);
    if (!variable) {
        table.SendTrace(messages::kRootNotFound, {table.GetSourcePath(), rootName});
        return CSymb::kLookupFailed;
    }
    MAPOFDDTDEF& types = table.GetTypes();
    CSymbXMLDDTDef* definition = nullptr;
    if (!types.FindTypeDef(variable->typeName, definition)) {
        table.SendTrace(messages::kRootTypeNotFound, {variable->typeName});
        return CSymb::kLookupFailed;
    }
    AddressDescriptor& descriptor = symbol.descriptor;
    descriptor = DescribeVariable(*variable);
    if (!definition->ResolvePath(&types, path, 1, true, descriptor, symbol.typeName, symbol.comment, symbol.address))
        return E_INVALIDARG;
    if (path.GetLastItem().hasNumber && !ExtractAskedBit(descriptor, path.GetLastItem()))
        return CSymb::kLookupFailed;
    descriptor.accessRight =
        descriptor.indirection >= AddressDescriptor::kByReference ? DWORD{1} : DWORD{variable->accessRights};
    symbol.customerString = variable->customerString;
    if (symbol.address.IsEmpty())
        table.FormatMemoryAddress(static_cast<std::int32_t>(descriptor.indirection), descriptor.block,
                                  descriptor.offset, descriptor.bit, static_cast<std::int32_t>(descriptor.size),
                                  descriptor.typeCode, symbol.address);
    // The text of a value without an address of its own is not for the host.
    if (!symbol.address.View().starts_with('%'))
        symbol.address.Empty();
    return S_OK;
}

} // namespace

HRESULT CSymbXml::SearchAndGetFF(DWORD selector, LPCSTR name, CString& address, CString& comment,
                                 AddressDescriptor** descriptor, DWORD* propertyCount, PropertyEntry** properties)
{
    const CSingleLock guard(&lock, TRUE);
    if (selector > kHighestSelector || !descriptor || !propertyCount || !properties)
        return E_INVALIDARG;
    *descriptor = nullptr;
    *propertyCount = 0;
    *properties = nullptr;
    return WithMemoryException([&] {
        CheckForNewFile();
        CString nameAsAsked(name);
        nameAsAsked.TrimLeft(' ');
        CString pathText(nameAsAsked);
        CSymbKorvaAnalyser path;
        if (!path.Analyse(pathText, 0)) {
            SendTrace(messages::kPathNotAnalysed, {sourcePath});
            return kLookupFailed;
        }
        ResolvedSymbol symbol;
        const HRESULT result = path.GetLastIndex() == 0 ? ResolvePlainName(*this, path, nameAsAsked, symbol)
                                                        : ResolveCompoundPath(*this, path, symbol);
        if (result != S_OK)
            return result;
        symbol.descriptor.consistencySum = projectIdentification[3] + projectIdentification[4];
        HostRecords records = MakeHostRecords(symbol);
        address = std::move(symbol.address);
        comment = std::move(symbol.comment);
        *propertyCount = records.propertyCount;
        *properties = records.properties.release(); // from here on the host frees both
        *descriptor = records.descriptor.release();
        return S_OK;
    });
}
