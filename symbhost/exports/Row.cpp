#include "symbhost/exports/Row.h"

namespace {

Cell If(bool isKnown, Cell cell)
{
    return isKnown ? cell : Cell();
}

Cell Number(std::uint32_t number)
{
    return std::int64_t{number};
}

bool HasFacts(const Row& row)
{
    return row.known != Row::Known::Nothing;
}

// clang-format off
constexpr Field<Row> kFields[] = {
    {"name", "NAME", 0, false, [](const Row& row) -> Cell { return row.name; }},
    {"result", "RESULT", 14, false, [](const Row& row) -> Cell { return HexNumber{static_cast<DWORD>(row.result)}; }},
    {"address", "ADDRESS", 1, false, [](const Row& row) { return If(HasFacts(row), row.address); }},
    {"type", "TYPE", 2, false, [](const Row& row) { return If(HasFacts(row), row.typeName); }},
    {"typeCode", "TYPE CODE", 15, false, [](const Row& row) { return If(row.IsServed(), HexNumber{row.typeCode}); }},
    {"kind", "KIND", 3, false, [](const Row& row) { return If(row.IsServed(), row.kindName); }},
    {"block", "BLOCK", 4, true, [](const Row& row) { return If(HasFacts(row), Number(row.block)); }},
    {"offset", "OFFSET", 5, true, [](const Row& row) { return If(HasFacts(row), Number(row.offset)); }},
    {"size", "SIZE", 6, true, [](const Row& row) { return If(HasFacts(row), Number(row.size)); }},
    {"bit", "BIT", 7, true, [](const Row& row) { return If(row.IsServed() && row.isBit, Number(row.bit)); }},
    {"byReference", "BY REFERENCE", 16, false, [](const Row& row) { return If(row.IsServed(), row.isByReference); }},
    {"relativeOffset", "RELATIVE OFFSET", 17, true,
     [](const Row& row) { return If(row.IsServed(), Number(row.relativeOffset)); }},
    {"relativeSize", "RELATIVE SIZE", 18, true,
     [](const Row& row) { return If(row.IsServed(), Number(row.relativeSize)); }},
    {"access", "ACCESS", 8, false, [](const Row& row) { return If(HasFacts(row), AccessText(row.accessRights)); }},
    {"comment", "COMMENT", 10, false, [](const Row& row) { return If(HasFacts(row), row.comment); }},
    {"customerString", "CUSTOMER STRING", 11, false,
     [](const Row& row) { return If(HasFacts(row), row.customerString); }},
    {"level", "LEVEL", 12, false, [](const Row& row) -> Cell {
         return std::string_view(row.isBranch ? "branch" : "leaf"); }},
    {"served", "SERVED", 13, false, [](const Row& row) -> Cell { return row.IsServed(); }},
    {"reason", "REASON", 9, false, [](const Row& row) -> Cell { return std::string_view(ReasonCode(row.reason)); }},
};
// clang-format on
constexpr std::size_t kLookupFields = 16;
static_assert(std::string_view(kFields[kLookupFields - 1].name) == "customerString");

} // namespace

std::string_view AccessText(DWORD accessRights)
{
    constexpr std::string_view kTexts[] = {"none", "r", "w", "rw"};
    return kTexts[accessRights & 3U];
}

Row RowOf(const LookupAnswer& answer)
{
    Row row;
    row.name = answer.name;
    row.result = answer.result;
    if (!answer.IsResolved())
        return row;
    const AddressDescriptor& place = answer.descriptor;
    row.address = answer.address;
    row.typeName = answer.typeName;
    row.kindName = answer.kindName;
    row.comment = answer.comment;
    row.customerString = answer.customerString;
    row.typeCode = place.typeCode;
    row.offset = place.offset;
    row.size = place.size;
    row.relativeOffset = place.relativeOffset;
    row.relativeSize = place.relativeSize;
    row.block = place.block;
    row.accessRights = static_cast<std::uint8_t>(place.accessRight);
    row.bit = place.bit;
    row.isBit = answer.IsBit();
    row.isByReference = answer.IsByReference();
    row.known = Row::Known::Lookup;
    return row;
}

void AddExport(Row& row, const ExportItem& variable)
{
    row.address = variable.address;
    row.typeName = variable.typeName;
    row.comment = variable.comment;
    row.customerString = variable.customerString;
    // The widths in which the plug-in keeps these numbers.
    row.block = static_cast<WORD>(variable.block.value_or(0));
    row.offset = static_cast<DWORD>(variable.offset.value_or(0));
    row.size = static_cast<DWORD>(variable.size.value_or(0));
    row.bit = static_cast<std::uint8_t>(variable.bit.value_or(AddressDescriptor::kNoBit));
    row.isBit = row.bit != AddressDescriptor::kNoBit;
    row.accessRights = static_cast<std::uint8_t>(variable.AccessRights());
    row.known = Row::Known::Export;
}

std::span<const Field<Row>> RowFields()
{
    return kFields;
}

std::span<const Field<Row>> LookupFields()
{
    return std::span(kFields).first(kLookupFields);
}
