#include "support/PlainModel.h"

namespace {

constexpr int kMostSteps = 16; // of a path
constexpr DWORD kStructured = 0x208, kBool = 0x02290148;
constexpr char kReader[] = "KorvaPro Reader <plant.kds>:SearchAndGetFF:";

// The type of what an array holds in the end.
const Type& Innermost(const Type& type)
{
    return type.kind == Type::kArray ? Innermost(*type.element) : type;
}

DWORD ArrayCode(DWORD code)
{
    return code << 16 | 0x1088;
}

bool Accepts(const HostBrowse& request, VARTYPE varType)
{
    return request.varType == 0 || request.varType == varType;
}

bool Accepts(const HostBrowse& request, const std::string& name)
{
    const std::string pattern = request.pattern;
    const std::string start = pattern.substr(0, pattern.find('*'));
    return name.substr(0, start.size()) == start;
}

bool AsksForUnlocated(const HostBrowse& request)
{
    return std::string(request.filter).find("%UL") != std::string::npos;
}

// With such a request nothing is listed below a variable that has an address of the controller.
bool IsLeftOut(const Place& place, const HostBrowse& request)
{
    return AsksForUnlocated(request) && place.root->address.find('%') != std::string::npos;
}

std::string Unlocated(const std::string& typeName, std::uint32_t block, std::uint32_t offset)
{
    return "U-" + typeName + " (B:" + std::to_string(block) + " - O:" + std::to_string(offset) + ") ";
}

std::string Fields(const HostBrowse& request, const std::string& address, const std::string& comment)
{
    std::string fields;
    for (const char code : request.fields)
        fields += '|' + (code == 'A' ? address : code == 'C' ? comment : "");
    return fields;
}

HostSymbol Refused(DWORD result, const std::string& message = "")
{
    HostSymbol symbol;
    symbol.result = static_cast<HRESULT>(result);
    symbol.messages = message;
    return symbol;
}

// What lookups of all kinds tell about the variable.
HostSymbol Described(const Item& variable)
{
    HostSymbol symbol;
    symbol.extraction = symbol.indirection = 1;
    symbol.bit = 255;
    symbol.block = static_cast<WORD>(variable.block);
    symbol.accessRight = variable.access;
    symbol.customerString = variable.customer;
    return symbol;
}

// Narrows to a bit that was asked for; every bit number in these tests is below 16.
std::string WithBit(HostSymbol symbol, const std::string& bit)
{
    if (bit.empty())
        return symbol.Text();
    if (symbol.size != 2)
        return Refused(0xFFFFFFFF).Text();
    symbol.extraction = 2;
    symbol.bit = static_cast<BYTE>(std::stoi(bit));
    symbol.typeCode = kBool;
    return symbol.Text();
}

} // namespace

DWORD CPlainModel::CodeOf(const Type& type, bool known)
{
    if (type.elementary)
        return type.elementary->code << 16 | 0x0148;
    const Elementary* const inner = Innermost(type).elementary;
    return known && type.kind == Type::kArray && inner && inner->ofVariables != 0x2011 ? ArrayCode(inner->code)
                                                                                       : kStructured;
}

VARTYPE CPlainModel::VarTypeOf(const Type& type, bool member)
{
    if (type.elementary)
        return type.elementary->varType;
    const Elementary* const inner = Innermost(type).elementary;
    if (type.kind != Type::kArray || !inner)
        return member ? 0 : 0x2011;
    return member ? inner->ofMembers : inner->ofVariables;
}

std::string CPlainModel::AreaAddress(bool direct, std::uint32_t block, std::uint32_t offset, int bit,
                                     std::uint32_t size, bool isBool) const
{
    const auto isIn = [&](const ModelArea& area) {
        return block % 65536 == area.block && area.base <= offset && offset - area.base <= 2 * words.count;
    };
    if (!direct || (!isIn(words) && !isIn(bits)))
        return "";
    if (!isIn(words)) {
        const std::uint32_t number = offset - bits.base + bits.firstIndex;
        return number < bits.count ? "%M" + std::to_string(number) : "";
    }
    const std::uint32_t word = (offset - words.base) / 2 + words.firstIndex;
    const int upperHalf = (offset - words.base) % 2 ? 8 : 0;
    const std::string number = std::to_string(word);
    if (word > words.count)
        return "";
    if (bit != 255)
        return upperHalf && bit > 7 ? "" : "%MW" + number + "." + std::to_string(bit + upperHalf);
    return size == 1 && isBool ? "%MW" + number + "." + std::to_string(upperHalf)
           : size == 2         ? "%MW" + number
           : size == 4         ? "%MD" + number
                               : "";
}

Place CPlainModel::Member(const Place& parent, const Item& named) const
{
    // Of names that differ in case alone a path finds the last, even where an import took that one out.
    const Item& found = *std::find_if(parent.type->members.rbegin(), parent.type->members.rend(),
                                      [&](const Item& other) { return SameName(other.name, named.name); });
    Place place = parent;
    place.path += "." + named.name;
    place.prefix = named.name;
    place.type = nullptr;
    place.member = nullptr;
    if (found.removed)
        return place;
    place.type = found.type;
    place.member = &found;
    place.parameter = parent.type->kind == Type::kBlock;
    place.members.push_back(&found);
    place.block = (parent.block + found.block) % 65536;
    place.offset += found.offset;
    place.size = place.bytes = found.size;
    (parent.located ? place.at : place.relative) += found.offset;
    place.relativeBytes = parent.located ? parent.relativeBytes : found.size;
    if (place.parameter) {
        place.byReference = found.indirection == 2;
        if (place.byReference)
            place.relativeBytes = found.size;
        return place;
    }
    if (found.type->elementary) {
        place.bytes = found.type->elementary->size;
        place.relativeBytes = parent.located ? parent.relativeBytes : place.bytes;
    }
    return place;
}

Place CPlainModel::Element(const Place& parent, int index) const
{
    const std::string text = "[" + std::to_string(index) + "]";
    Place place = parent;
    place.path += text;
    place.prefix += text;
    place.type = nullptr;
    place.inMemberArray = parent.inMemberArray || parent.member;
    place.member = nullptr;
    place.parameter = false;
    if (index < parent.type->lower || index > parent.type->upper)
        return place;
    const std::uint32_t number = static_cast<std::uint32_t>(index - parent.type->lower);
    place.type = parent.type->element;
    place.size = parent.size / parent.type->Count();
    place.offset += number * place.size;
    place.bytes = parent.bytes / parent.type->Count();
    (parent.located ? place.at : place.relative) += number * place.bytes;
    place.relativeBytes = parent.located ? parent.relativeBytes : place.bytes;
    return place;
}

std::vector<Place> CPlainModel::Children(const Place& from) const
{
    // Below a parameter all is relative to it, unless it is passed by value.
    Place parent = from;
    if (parent.parameter)
        parent.located = parent.member->indirection == 1;
    std::vector<Place> children;
    for (const Item& member : parent.type->members)
        children.push_back(Member(parent, member));
    if (parent.type->kind == Type::kArray)
        for (int index = parent.type->lower - 1; index <= parent.type->upper + 1; ++index)
            children.push_back(Element(parent, index));
    return children;
}

std::vector<Place> CPlainModel::Places(std::size_t enough) const
{
    std::vector<Place> places;
    for (const Item& variable : project.variables) {
        const Type* named = variable.type->name == "UINT" && project.uintBlock ? project.uintBlock : variable.type;
        places.push_back({.path = variable.name,
                          .prefix = variable.name,
                          .type = named,
                          .root = &variable,
                          .block = variable.block,
                          .offset = variable.offset,
                          .size = variable.size,
                          .at = variable.offset,
                          .bytes = variable.size});
    }
    for (std::size_t i = 0; i < places.size() && places.size() < enough; ++i) {
        if (!places[i].IsListed())
            continue;
        for (Place& child : Children(places[i])) {
            child.steps = places[i].steps + 1;
            if (child.steps <= kMostSteps)
                places.push_back(child);
        }
    }
    return places;
}

std::string CPlainModel::Lookup(const Item& variable, const std::string& bit) const
{
    const Elementary* const type = variable.type->elementary;
    if (variable.address.empty() || !type || !type->plain)
        return Refused(0xFFFFFFFF, kReader + std::string("Can only animate LOCATED EDT which size is 1 or 2")).Text();
    HostSymbol symbol = Described(variable);
    symbol.typeName = type->name;
    symbol.typeCode = CodeOf(*variable.type, true);
    symbol.offset = variable.offset;
    symbol.size = variable.size;
    symbol.comment = variable.comment;
    symbol.address = variable.address + (bit.empty() ? "" : "." + bit);
    if (bit.empty() && variable.bit != 255) { // the variable is a bit of a word, which begins at an even byte
        const DWORD odd = symbol.offset % 2;
        symbol.offset -= odd;
        symbol.size = 2;
        return WithBit(symbol, std::to_string(static_cast<DWORD>(variable.bit) + 8 * odd));
    }
    return WithBit(symbol, bit);
}

std::string CPlainModel::Lookup(const Place& place, const std::string& bit) const
{
    // A path may go through a function block that is not located, but not end in one.
    if (!place.type || (place.parameter && !place.located) || (!place.member && place.type->kind == Type::kUnknown))
        return Refused(0x80070057).Text();
    const Type& type = *place.type;
    HostSymbol symbol = Described(*place.root);
    symbol.typeName = place.member || type.elementary ? Upper(type.name) : type.name;
    symbol.typeCode = place.member || type.elementary ? CodeOf(type, !place.member || place.member->known)
                                                      : CodeOf(*place.root->type, true);
    symbol.offset = place.at;
    symbol.size = place.bytes;
    symbol.relativeOffset = place.relative;
    symbol.relativeSize = static_cast<WORD>(place.relativeBytes);
    if (place.inMemberArray && type.IsArrayOfValues() && type.Count() != 0) {
        const Elementary& inner = *type.element->elementary;
        symbol.size = inner.size * type.Count();
        symbol.typeCode = inner.definitionCode ? ArrayCode(inner.definitionCode) : kStructured;
    }
    if (place.byReference) {
        symbol.indirection = 2;
        symbol.accessRight = 1;
    }
    if (place.member)
        symbol.comment = place.member->comment;
    else if (!type.elementary) {
        symbol.comment = type.anonymous ? "" : Upper(type.name);
        symbol.address = AreaAddress(!place.byReference, place.root->block, place.at, 255, symbol.size, false);
    }
    return WithBit(symbol, bit);
}

// As texts: what has an address and, of single values, what a plain name serves.
Listing CPlainModel::Variables(const HostBrowse& request, bool asTexts) const
{
    Listing listing;
    for (const Item& variable : project.variables) {
        const Type& type = *variable.type;
        const bool branch = !type.elementary;
        const bool isPlain = !branch && type.elementary->plain && !(project.uintBlock && type.name == "UINT");
        const bool located = asTexts ? variable.address.find('%') != std::string::npos : !variable.address.empty();
        bool wanted = branch ? request.branches && !asTexts : request.leaves && (isPlain || !asTexts);
        if (request.branchesOnly)
            wanted = branch;
        if (!wanted || (AsksForUnlocated(request) && located) || !Accepts(request, VarTypeOf(type, false)) ||
            !Accepts(request, variable.name))
            continue;
        std::string address = variable.address;
        if (address.empty())
            address =
                AreaAddress(true, variable.block, variable.offset, variable.bit, variable.size, type.name == "BOOL");
        if (!asTexts)
            listing.push_back({variable.name, "!" + variable.name, branch});
        else if (!address.empty())
            listing.push_back({variable.name + Fields(request, address, variable.comment), "", branch});
    }
    return listing;
}

Listing CPlainModel::Members(const Place& place, const HostBrowse& request) const
{
    const bool block = place.type->kind == Type::kBlock;
    Listing listing;
    for (const Item& member : place.type->members) {
        if (member.hidden || member.removed || !Accepts(request, member.name))
            continue;
        const Type& type = *member.type;
        const bool leaf = type.elementary;
        const bool typeMatches = Accepts(request, VarTypeOf(type, true));
        bool wanted = block || typeMatches;
        if (request.branchesOnly || (request.branches && !request.leaves))
            wanted = type.IsDerived();
        else if (request.leaves && !request.branches)
            wanted = leaf && typeMatches;
        if (!wanted)
            continue;
        const std::uint32_t inBlock = place.block + member.block;
        const std::uint32_t offset = place.offset + member.offset;
        const std::string address =
            AreaAddress(member.indirection < 2, inBlock, offset, 255, member.size, type.name == "BOOL");
        const std::string unlocated = Unlocated(member.upper ? Upper(member.spelled) : member.spelled, inBlock, offset);
        const std::string entry =
            member.name + Fields(request, block && !address.empty() ? address : unlocated + address, member.comment);
        listing.push_back({entry, "." + entry, !leaf});
    }
    return listing;
}

Listing CPlainModel::Elements(const Place& place, const HostBrowse& request) const
{
    const Type& element = *place.type->element;
    const bool asBranches = (request.branchesOnly || request.branches) && element.IsDerived();
    const bool asLeaves = request.leaves && !element.IsDerived() &&
                          Accepts(request, element.elementary ? element.elementary->varType : VARTYPE{0});
    Listing listing;
    if (!asBranches && !asLeaves)
        return listing;
    for (int i = place.type->lower; i <= place.type->upper; ++i) {
        const std::string index = "[" + std::to_string(i) + "]";
        if (!Accepts(request, place.prefix + index))
            continue;
        const std::uint32_t size = place.size / place.type->Count();
        const std::uint32_t offset = place.offset + static_cast<std::uint32_t>(i - place.type->lower) * size;
        const std::string address =
            Unlocated(element.IsDerived() ? element.name : Upper(element.name), place.block, offset) +
            AreaAddress(true, place.block, offset, 255, size, element.name == "BOOL");
        const std::string entry = index + Fields(request, address, "");
        listing.push_back({place.prefix + entry, entry, !element.elementary});
    }
    return listing;
}

Listing CPlainModel::Below(const Place& place, const HostBrowse& request) const
{
    if (IsLeftOut(place, request))
        return {};
    return place.type->kind == Type::kArray ? Elements(place, request) : Members(place, request);
}

void CPlainModel::Visit(const Place& place)
{
    for (const Item* member : place.members)
        member->upper = true;
}

void CPlainModel::VisitListing(const Place& place, const HostBrowse& request)
{
    if (IsLeftOut(place, request))
        return;
    for (const Item& member : place.type->members) {
        if (member.hidden)
            continue;
        member.upper = true;
        member.known = member.known || (place.type->kind == Type::kStructure && Accepts(request, member.name));
    }
}
