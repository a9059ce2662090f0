// Small projects from a seed, described plainly enough to write out what they hold.
#pragma once

#include "platform/com/Variant.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

struct Type;

// A variable, or a member of a structure or block.
struct Item
{
    std::string name;
    const Type* type;
    std::uint32_t block, offset, size;
    std::string comment, address = {};
    bool hidden = false;
    bool removed = false; // a block inside a block, behind the first parameter
    int bit = 255;
};

struct Type
{
    // An array has one dimension; several dimensions are arrays of arrays.
    enum Kind
    {
        kElementary,
        kStructure,
        kBlock,
        kArray,
        kUnknown
    };

    std::string name; // an array that is written out is called by its declaration
    Kind kind;
    VARTYPE varType = 0, arrayOfVariables = 0x2011, arrayOfMembers = 0; // of one value, and of arrays of them
    bool plain = false;                                                 // a variable is served by its plain name
    std::vector<Item> members = {};
    int lower = 0, upper = 0;
    const Type* element = nullptr;

    bool IsDerived() const { return kind == kStructure || kind == kBlock || kind == kArray; }
    std::uint32_t Count() const { return upper < lower ? 0 : static_cast<std::uint32_t>(upper - lower + 1); }
};

// The letters of ASCII alone.
inline std::string InCase(bool upper, std::string text)
{
    for (char& c : text)
        if (upper ? 'a' <= c && c <= 'z' : 'A' <= c && c <= 'Z')
            c = static_cast<char>(c ^ 0x20);
    return text;
}

struct Elementary
{
    const char* name;
    VARTYPE varType, arrayOfVariables, arrayOfMembers;
    bool plain;
};
constexpr Elementary kElementary[] = {
    {"BOOL", 11, 0x200B, 0x200B, true},   {"EBOOL", 11, 0x200B, 0x200B, true},  {"INT", 2, 0x2002, 0x2012, true},
    {"UINT", 18, 0x2012, 0x2012, true},   {"WORD", 18, 0x2012, 0x2012, true},   {"DINT", 3, 0x2003, 0x2013, false},
    {"UDINT", 19, 0x2013, 0x2013, false}, {"DWORD", 19, 0x2013, 0x2013, false}, {"REAL", 4, 0x2004, 0x2013, false},
    {"BYTE", 17, 0x2011, 0, false},       {"STRING", 17, 0x2011, 0, false},     {"STRING[5]", 17, 0x2011, 0, false},
    {"WSTRING", 18, 0x2011, 0, false},    {"TOD", 19, 0x2011, 0, false},        {"TIME", 19, 0x2011, 0, false},
    {"DATE", 19, 0x2011, 0, false},       {"DT", 5, 0x2011, 0, false}};

class CGeneratedProject
{
public:
    explicit CGeneratedProject(unsigned seed) : random(seed)
    {
        for (const Elementary& row : kElementary)
            Add({row.name, Type::kElementary, row.varType, row.arrayOfVariables, row.arrayOfMembers, row.plain});
        Add({"Nowhere", Type::kUnknown});
        DeclareTypes();
        for (int i = 0; i < 7; ++i)
            DeclareVariable();
    }

    std::string text;            // for the export builder
    std::vector<Item> variables; // those that an import accepts, in the order of listings
    Type* uintBlock = nullptr;   // a function block that is called like the elementary type

    std::uint32_t Draw(std::size_t limit) { return static_cast<std::uint32_t>(random() % limit); }

private:
    using Names = std::vector<std::string>;
    // Some begin like others, some differ in case alone.
    static const inline Names kTypeNames = {"Point", "MOTOR", "Gr\xC3\xB6\xC3\x9F-1", "pid", "Points"};
    static const inline Names kMemberNames = {"SPEED",     "Speed",           "X",  "x1", "MOTOR",
                                              "MOTOR_POS", "Moment \xC3\xA4", "TAB"};
    static const inline Names kVariableNames = {"V1",      "v1",  "V10",         "MOTOR",
                                                "Motor_2", "TAB", "F\xC3\xBCll", "F\xC3\x9Cll"};

    template <class Value>
    const Value& Any(const std::vector<Value>& values)
    {
        return values[Draw(values.size())];
    }

    Type* Add(Type type)
    {
        types.push_back(std::make_unique<Type>(std::move(type)));
        return types.back().get();
    }

    // Of a named array nothing is made before it is declared.
    const Type* AnyType()
    {
        const std::uint32_t choice = Draw(8);
        if (choice == 0) {
            const Type* element = AnyType();
            return ArrayOf(element, InCase(true, element->name));
        }
        const Type* type = choice <= 3 ? Any(named) : types[Draw(std::size(kElementary) + (choice == 4))].get();
        return type->kind == Type::kArray && !type->element ? types[0].get() : type;
    }

    // Of one dimension or two; now and then there is nothing between the bounds.
    const Type* ArrayOf(const Type* element, const std::string& elementName)
    {
        std::string bounds;
        for (std::uint32_t left = 1 + Draw(3) / 2; left > 0; --left) {
            Type array{.name = "", .kind = Type::kArray, .lower = static_cast<int>(Draw(5)) - 3, .element = element};
            array.upper = array.lower + static_cast<int>(Draw(4)) - (Draw(12) == 0 ? 2 : 0);
            std::string range = std::to_string(array.lower);
            range.append("..").append(std::to_string(array.upper));
            bounds = bounds.empty() ? range : range.append(",").append(bounds);
            array.name.append("ARRAY[").append(bounds).append("] OF ").append(elementName);
            element = Add(array);
        }
        return element;
    }

    std::string Spelled(const std::string& typeName)
    {
        const std::uint32_t choice = typeName.starts_with("ARRAY") ? 0 : Draw(3);
        return choice == 0 ? typeName : InCase(choice == 1, typeName);
    }

    Item MakeItem(const std::string& name)
    {
        const std::string comment = Any<std::string>({"", "", "a | b", "d\xC3\xA9 <m> & \"q\""});
        return {name,
                AnyType(),
                Any<std::uint32_t>({0, 0, 5, 65535}),
                Any<std::uint32_t>({0, 0, 1, 40}),
                Any<std::uint32_t>({0, 1, 2, 4, 4, 13}),
                comment};
    }

    std::string Write(const Item& item)
    {
        std::string line = " \"" + item.name + "\" \"" + Spelled(item.type->name) + "\" @" +
                           std::to_string(item.offset) + " size " + std::to_string(item.size);
        line += item.block ? " block " + std::to_string(item.block) : "";
        line += item.hidden ? " hidden 1" : "";
        line += item.address.empty() ? "" : " AT " + item.address;
        line += item.bit == 255 ? "" : " bit " + std::to_string(item.bit) + " customer kunde";
        return line + (item.comment.empty() ? "" : " '" + item.comment + "'") + "\n";
    }

    // In any order: types hold later ones, each other and themselves.
    void DeclareTypes()
    {
        for (const std::string& name : kTypeNames)
            named.push_back(
                Add({name, Any<Type::Kind>({Type::kStructure, Type::kStructure, Type::kBlock, Type::kArray})}));
        for (Type* type : named)
            if (type->kind == Type::kArray)
                DeclareArray(*type);
        for (Type* type : named)
            if (type->kind != Type::kArray)
                DeclareMembers(*type);
        if (Draw(4) == 0)
            DeclareMembers(*(uintBlock = Add({"Uint", Type::kBlock})));
        std::shuffle(declarations.begin(), declarations.end(), random);
        for (const std::string& declaration : declarations)
            text += declaration;
    }

    void DeclareArray(Type& type)
    {
        const Type* element = AnyType();
        Type array = *ArrayOf(element, Spelled(element->name));
        declarations.push_back("TYPE " + type.name + " \"" + std::exchange(array.name, type.name) + "\"\n");
        type = array;
    }

    // A type declared again takes the place of the one before.
    void DeclareMembers(Type& type)
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
        declarations.push_back(declaration + "END\n");
    }

    // A name in another case takes the place of the one before; what is of an unknown type is left out.
    void DeclareVariable()
    {
        Item variable = MakeItem(Any(kVariableNames));
        variable.address = Any<std::string>({"", "", "%MW10", "%I0.1", "somewhere"});
        variable.bit = Any<int>({255, 255, 255, 3});
        text += "VAR" + Write(variable);
        if (variable.type->kind == Type::kUnknown)
            return;
        const auto same = std::find_if(variables.begin(), variables.end(), [&](const Item& other) {
            return InCase(true, other.name) == InCase(true, variable.name);
        });
        if (same == variables.end())
            variables.push_back(variable);
        else
            *same = variable;
    }

    std::mt19937 random;
    std::vector<std::unique_ptr<Type>> types; // the elementary ones, the unknown one, then those of the project
    std::vector<Type*> named;
    std::vector<std::string> declarations;
};
