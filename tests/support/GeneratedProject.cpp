#include "support/GeneratedProject.h"

#include <iterator>

namespace {

// Some begin like others, some differ in case alone.
using Names = std::vector<std::string>;
const Names kTypeNames = {"Point", "MOTOR", "Gr\xC3\xB6\xC3\x9F-1", "pid", "Points"};
const Names kMemberNames = {"SPEED", "Speed", "X", "x1", "MOTOR", "MOTOR_POS", "Moment \xC3\xA4", "TAB"};
const Names kVariableNames = {"V1", "v1", "V10", "MOTOR", "Motor_2", "TAB", "F\xC3\xBCll", "F\xC3\x9Cll"};

std::string Write(const Item& item)
{
    std::string line = " \"" + item.name + "\" \"" + item.spelled + "\" @" + std::to_string(item.offset) + " size " +
                       std::to_string(item.size);
    line += item.block ? " block " + std::to_string(item.block) : "";
    line += item.hidden ? " hidden 1" : "";
    line += item.address.empty() ? "" : " AT " + item.address;
    line += item.bit == 255 ? "" : " bit " + std::to_string(item.bit);
    line += item.customer.empty() ? "" : " customer " + item.customer;
    line += item.access == 3 ? "" : " access " + std::to_string(item.access == 2 ? 3 : item.access);
    return line + (item.comment.empty() ? "" : " '" + item.comment + "'") + "\n";
}

// Whether every array type that has a name, from `type` to what its arrays hold in the end, was declared before.
bool IsKnownBefore(const Type* type, std::size_t declaration)
{
    for (; type->kind == Type::kArray; type = type->element)
        if (type->declaration > declaration)
            return false;
    return true;
}

} // namespace

CGeneratedProject::CGeneratedProject(unsigned seed) : random(seed)
{
    for (const Elementary& row : kElementary)
        Add({.name = row.name, .kind = Type::kElementary, .elementary = &row});
    Add({"Nowhere", Type::kUnknown});
    DeclareTypes();
    for (int i = 0; i < 7; ++i)
        DeclareVariable();
    if (uintBlock)
        named.push_back(uintBlock); // not before: the name means the elementary type
    for (const Type* type : named)
        for (const Item& member : type->members)
            // Function blocks come behind all other types; the look for blocks among their parameters leaves the names
            // upper case.
            if (type->kind == Type::kBlock)
                member.upper = &member != &type->members.front();
            else
                member.known = IsKnownBefore(member.type, type->declaration);
}

// Of a named array nothing is made before it is declared.
const Type* CGeneratedProject::AnyType()
{
    const std::uint32_t choice = Draw(8);
    if (choice == 0) {
        const Type* element = AnyType();
        return ArrayOf(element, Upper(element->name));
    }
    const Type* type = choice <= 3 ? Any(named) : types[Draw(std::size(kElementary) + (choice == 4))].get();
    return type->kind == Type::kArray && !type->element ? types[0].get() : type;
}

// Of one dimension or two; now and then there is nothing between the bounds.
const Type* CGeneratedProject::ArrayOf(const Type* element, const std::string& elementName)
{
    std::string bounds;
    const std::uint32_t dimensions = 1 + Draw(3) / 2;
    for (std::uint32_t left = dimensions; left > 0; --left) {
        Type array{.name = "", .kind = Type::kArray, .lower = static_cast<int>(Draw(5)) - 3, .element = element};
        array.upper = array.lower + static_cast<int>(Draw(4)) - (Draw(12) == 0 ? 2 : 0);
        array.anonymous = dimensions > 1;
        std::string range = std::to_string(array.lower);
        range.append("..").append(std::to_string(array.upper));
        bounds = bounds.empty() ? range : range.append(",").append(bounds);
        array.name.append("ARRAY[").append(bounds).append("] OF ").append(elementName);
        element = Add(array);
    }
    return element;
}

std::string CGeneratedProject::Spelled(const std::string& typeName)
{
    const std::uint32_t choice = typeName.starts_with("ARRAY") ? 0 : Draw(3);
    return choice == 0 ? typeName : InCase(choice == 1, typeName);
}

Item CGeneratedProject::MakeItem(const std::string& name)
{
    const Type* type = AnyType();
    return {.name = name,
            .type = type,
            .spelled = Spelled(type->name),
            .block = Any<std::uint32_t>({0, 0, 5, 65535}),
            .offset = Any<std::uint32_t>({0, 0, 1, 40}),
            .size = Any<std::uint32_t>({0, 1, 2, 2, 4, 4, 13, 48, 65540}),
            .access = Any<std::uint32_t>({3, 3, 0, 1, 2}),
            .comment = Any<std::string>({"", "", "a | b", "d\xC3\xA9 <m> & \"q\""}),
            .indirection = Any<std::uint16_t>({0, 0, 1, 2})};
}

// In any order: types hold later ones, each other and themselves.
void CGeneratedProject::DeclareTypes()
{
    for (const std::string& name : kTypeNames)
        named.push_back(Add({name, Any<Type::Kind>({Type::kStructure, Type::kStructure, Type::kBlock, Type::kArray})}));
    for (Type* type : named)
        if (type->kind == Type::kArray)
            DeclareArray(*type);
    for (Type* type : named)
        if (type->kind != Type::kArray)
            DeclareMembers(*type);
    if (Draw(4) == 0)
        DeclareMembers(*(uintBlock = Add({"Uint", Type::kBlock})));
    std::shuffle(declarations.begin(), declarations.end(), random);
    for (std::size_t i = 0; i < declarations.size(); ++i) {
        text += declarations[i].second;
        declarations[i].first->declaration = i + 1;
    }
}

void CGeneratedProject::DeclareArray(Type& type)
{
    const Type* element = AnyType();
    Type array = *ArrayOf(element, Upper(element->name));
    std::string spelled = array.name;
    if (!array.anonymous) // else its parts show the name
        spelled = spelled.substr(0, spelled.size() - element->name.size()) + Spelled(element->name);
    declarations.emplace_back(&type, "TYPE " + type.name + " \"" + spelled + "\"\n");
    array.name = type.name;
    array.anonymous = false;
    type = array;
}

// A type declared again takes the place of the one before.
void CGeneratedProject::DeclareMembers(Type& type)
{
    const bool block = type.kind == Type::kBlock;
    std::string declaration = Draw(4) ? "" : "TYPE " + InCase(false, type.name) + " STRUCT OLD INT END\n";
    declaration += (block ? "DFB " : "TYPE ") + type.name + (block ? "" : " STRUCT");
    Names names = kMemberNames;
    std::shuffle(names.begin(), names.end(), random);
    names.resize(1 + Draw(5));
    for (const std::string& name : names) {
        Item member = MakeItem(name);
        member.hidden = Draw(6) == 0;
        member.removed = block && !type.members.empty() && member.type->kind == Type::kBlock;
        if (block && (type.members.empty() || Draw(2)))
            declaration += Any<std::string>({" IN", " INOUT", " OUT", " PRIVATE", " PUBLIC"});
        declaration += Write(member);
        type.members.push_back(member);
    }
    declarations.emplace_back(&type, declaration + "END\n");
}

// A name in another case takes the place of the one before; what is of an unknown type is left out.
void CGeneratedProject::DeclareVariable()
{
    Item variable = MakeItem(Any(kVariableNames));
    variable.address = Any<std::string>({"", "", "%MW10", "%I0.1", "somewhere"});
    variable.customer = Any<std::string>({"", "kunde"});
    variable.bit = Any<int>({255, 255, 255, 3});
    text += "VAR" + Write(variable);
    if (variable.type->kind == Type::kUnknown)
        return;
    const auto same = std::find_if(variables.begin(), variables.end(),
                                   [&](const Item& other) { return SameName(other.name, variable.name); });
    if (same == variables.end())
        variables.push_back(variable);
    else
        *same = variable;
}
