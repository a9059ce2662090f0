// Small projects from a seed, described plainly enough to write out what they hold.
#pragma once

#include "support/Elementary.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

// The letters of ASCII alone.
inline std::string InCase(bool upper, std::string text)
{
    for (char& c : text)
        if (upper ? 'a' <= c && c <= 'z' : 'A' <= c && c <= 'Z')
            c = static_cast<char>(c ^ 0x20);
    return text;
}
inline std::string Upper(const std::string& text)
{
    return InCase(true, text);
}
inline bool SameName(const std::string& name, const std::string& other)
{
    return Upper(name) == Upper(other);
}

struct Type;

// A variable, or a member of a structure or block.
struct Item
{
    std::string name;
    const Type* type;
    std::string spelled; // the type's name as the export writes it
    std::uint32_t block, offset, size, access;
    std::string comment, address = {}, customer = {};
    bool hidden = false;
    bool removed = false; // a block inside a block, behind the first parameter
    int bit = 255;
    std::uint16_t indirection = 0; // of no export

    // What a symbol table knows: requests change it.
    mutable bool upper = false; // the type's name is held in upper case
    mutable bool known = true;  // it was classified when the types of arrays in it were known
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
    const Elementary* elementary = nullptr;
    std::vector<Item> members = {};
    int lower = 0, upper = 0;
    const Type* element = nullptr;
    bool anonymous = false;      // has several dimensions and no name, or is the inner part of such a type
    std::size_t declaration = 0; // its number among the declarations; 0: it has none

    bool IsDerived() const { return kind == kStructure || kind == kBlock || kind == kArray; }
    bool IsArrayOfValues() const { return kind == kArray && element->elementary; }
    std::uint32_t Count() const { return upper < lower ? 0 : static_cast<std::uint32_t>(upper - lower + 1); }
};

class CGeneratedProject
{
public:
    explicit CGeneratedProject(unsigned seed);

    std::string text;            // for the export builder
    std::vector<Item> variables; // those that an import accepts, in the order of listings
    std::vector<Type*> named;    // structures, blocks and arrays with a name
    Type* uintBlock = nullptr;   // a function block that is called like the elementary type

    std::uint32_t Draw(std::size_t limit) { return static_cast<std::uint32_t>(random() % limit); }
    template <class Value>
    const Value& Any(const std::vector<Value>& values)
    {
        return values[Draw(values.size())];
    }

private:
    Type* Add(Type type)
    {
        types.push_back(std::make_unique<Type>(std::move(type)));
        return types.back().get();
    }
    const Type* AnyType();
    const Type* ArrayOf(const Type* element, const std::string& elementName);
    std::string Spelled(const std::string& typeName);
    Item MakeItem(const std::string& name);
    void DeclareTypes();
    void DeclareArray(Type& type);
    void DeclareMembers(Type& type);
    void DeclareVariable();

    std::mt19937 random;
    std::vector<std::unique_ptr<Type>> types; // the elementary ones, the unknown one, then those of the project
    std::vector<std::pair<Type*, std::string>> declarations;
};
