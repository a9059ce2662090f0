// Generated projects, every path of which is written out with what it must resolve to by code too simple to be wrong.
#include "resolve/LoadedPlant.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <memory>
#include <random>
#include <set>

namespace {

struct Elementary
{
    const char* name;
    std::uint32_t size;
};
constexpr Elementary kElementary[] = {{"BOOL", 1}, {"BYTE", 1}, {"INT", 2},       {"WORD", 2}, {"DINT", 4},
                                      {"REAL", 4}, {"DT", 8},   {"STRING[5]", 5}, {"TOD", 4},  {"UINT", 2}};

// A type as the project declares it: elementary, a structure or block with members, or an array of one or two
// dimensions.
struct Type
{
    std::string name;
    std::uint32_t size = 0;
    bool block = false;
    struct Member
    {
        std::string name;
        const Type* type;
        std::uint32_t offset;
    };
    std::vector<Member> members;
    const Type* element = nullptr;
    std::vector<std::pair<int, int>> dimensions;

    bool IsElementary() const { return members.empty() && !element; }
};

struct Place
{
    std::uint32_t offset = 0;
    std::uint32_t relative = 0;
    bool below = false; // a parameter of a function block: the rest of the path is relative to it
};

Place Moved(Place place, std::uint32_t bytes)
{
    (place.below ? place.relative : place.offset) += bytes;
    return place;
}

class CProject
{
public:
    explicit CProject(unsigned seed) : random(seed)
    {
        for (const Elementary& row : kElementary)
            Keep({row.name, row.size, false, {}, nullptr, {}});
        for (int i = 0; i < 4; ++i)
            DeclareMembers("S" + std::to_string(i), false);
        for (int i = 0; i < 2; ++i)
            DeclareMembers("F" + std::to_string(i), true);
        for (int i = 0; i < 10; ++i)
            DeclareVariable("V" + std::to_string(i));
    }

    std::string text;
    std::map<std::string, std::string> expected; // path to "TYPE +offset size n" and what else there is

private:
    std::uint32_t Draw(std::uint32_t limit) { return static_cast<std::uint32_t>(random() % limit); }
    const Type* Keep(Type type)
    {
        types.push_back(std::make_unique<Type>(std::move(type)));
        return types.back().get();
    }

    // Elementary, declared earlier, or an array written out. Blocks are members of nothing.
    const Type* AnyType(bool mayBeBlock)
    {
        const Type* type =
            types[Draw(2) ? Draw(std::size(kElementary)) : Draw(static_cast<unsigned>(types.size()))].get();
        if (type->block && !mayBeBlock)
            type = types[2].get();
        if (Draw(3) != 0 || type->element)
            return type;
        Type array{"ARRAY[", type->size, false, {}, type, {}};
        for (std::uint32_t left = 1 + Draw(2); left > 0; --left) {
            const int lower = static_cast<int>(Draw(7)) - 3;
            array.dimensions.emplace_back(lower, lower + static_cast<int>(Draw(4)));
            array.size *= static_cast<std::uint32_t>(array.dimensions.back().second - lower + 1);
        }
        array.name = ArrayName(array, 0);
        return Keep(array);
    }

    static std::string ArrayName(const Type& array, std::size_t from)
    {
        std::string name;
        for (std::size_t i = from; i < array.dimensions.size(); ++i)
            name += (i > from ? "," : "ARRAY[") + std::to_string(array.dimensions[i].first) + ".." +
                    std::to_string(array.dimensions[i].second);
        return name + "] OF " + array.element->name;
    }

    void DeclareMembers(const std::string& name, bool block)
    {
        Type type{name, 0, block, {}, nullptr, {}};
        text += (block ? "DFB " + name + " IN" : "TYPE " + name + " STRUCT");
        for (std::uint32_t i = 0, count = 1 + Draw(4); i < count; ++i) {
            const Type* member = AnyType(false);
            type.size += Draw(3);
            type.members.push_back({"M" + std::to_string(i), member, type.size});
            text += " M" + std::to_string(i) + " " + member->name + " @" + std::to_string(type.size) + " size " +
                    std::to_string(member->size);
            type.size += member->size;
        }
        text += " END\n";
        Keep(type);
    }

    void DeclareVariable(const std::string& name)
    {
        const Type* type = AnyType(true);
        const std::uint32_t offset = 1 + Draw(1000);
        text += "VAR " + name + " " + type->name + " @" + std::to_string(offset) + " size " +
                std::to_string(type->size) + "\n";
        WriteBelow(name, *type, {offset, 0, false});
    }

    // With what a bit number behind the path gives, unless it would be a member or an index.
    void Write(const std::string& path, const std::string& type, Place place, std::uint32_t size, bool takesBit)
    {
        std::string& line = expected[path];
        line = type + " +" + std::to_string(place.offset) + " size " + std::to_string(size);
        if (place.below)
            line += " relative " + std::to_string(place.relative) + "/" + std::to_string(size);
        if (takesBit)
            expected[path + ".15"] = size == 2 ? line + " bit 15" : kNoSuchBit;
    }

    void WriteBelow(const std::string& path, const Type& type, Place place)
    {
        if (type.element)
            WriteElements(path, type, 0, type.size, place);
        for (const Type::Member& member : type.members) {
            const Place at = Moved(place, member.offset);
            const std::string name = path + "." + member.name;
            Write(name, member.type->name, at, member.type->size, true);
            WriteBelow(name, *member.type, {at.offset, at.relative, at.below || type.block});
        }
    }

    void WriteElements(const std::string& path, const Type& array, std::size_t dimension, std::uint32_t size,
                       Place place)
    {
        const auto [lower, upper] = array.dimensions[dimension];
        const std::uint32_t elementSize = size / static_cast<std::uint32_t>(upper - lower + 1);
        const bool last = dimension + 1 == array.dimensions.size();
        for (int index = lower; index <= upper; ++index) {
            const std::string name = path + "[" + std::to_string(index) + "]";
            const Place at = Moved(place, static_cast<std::uint32_t>(index - lower) * elementSize);
            if (last) {
                Write(name, array.element->name, at, elementSize, array.element->IsElementary());
                WriteBelow(name, *array.element, at);
            } else {
                Write(name, ArrayName(array, dimension + 1), at, elementSize, false);
                WriteElements(name, array, dimension + 1, elementSize, at);
            }
        }
    }

    std::mt19937 random;
    std::vector<std::unique_ptr<Type>> types;
};

std::string ShowPlace(const HostSymbol& symbol)
{
    if (symbol.result != 0 || !symbol.deviation.empty())
        return symbol.Text();
    std::string text = symbol.typeName + " +" + std::to_string(symbol.offset) + " size " + std::to_string(symbol.size);
    if (symbol.relativeOffset != 0 || symbol.relativeSize != 0)
        text += " relative " + std::to_string(symbol.relativeOffset) + "/" + std::to_string(symbol.relativeSize);
    if (symbol.bit != 0xFF)
        text += " bit " + std::to_string(symbol.bit);
    return text;
}

std::string LowerCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

// Every name below `path`, as the identifiers of listings spell it.
void Walk(const CHostTable& table, const std::string& path, std::set<std::string>& names)
{
    const std::u16string parent(path.begin(), path.end());
    for (const HostElement& element :
         table.BrowsePage({.path = path.c_str(), .parentId = parent.c_str()}, 0).elements) {
        const std::string name = element.itemId.substr(path.empty() ? 1 : 0); // behind "!"
        names.insert(name);
        if (element.kind == 3)
            Walk(table, name, names);
    }
}

TEST(PlainModel, AgreesOnEveryPath)
{
    std::size_t compared = 0;
    for (unsigned seed = 1; seed <= 2000; ++seed) {
        const CProject project(seed);
        CLoadedPlant plant(project.text);
        for (const auto& [path, expected] : project.expected) {
            const std::string asked = seed % 2 ? path : LowerCase(path);
            ASSERT_EQ(ShowPlace(plant.table.Resolve(asked.c_str())), expected) << path << " in\n" << project.text;
            ++compared;
        }
    }
    EXPECT_GT(compared, 100000u);
}

TEST(PlainModel, ListsEveryPath)
{
    for (unsigned seed = 1; seed <= 200; ++seed) {
        const CProject project(seed);
        CLoadedPlant plant(project.text);
        std::set<std::string> listed;
        Walk(plant.table, "", listed);
        std::erase_if(listed, [](const std::string& name) { return name.find_first_of(".[") == std::string::npos; });
        std::set<std::string> expected;
        for (const auto& [path, place] : project.expected)
            if (!path.ends_with(".15"))
                expected.insert(path);
        EXPECT_EQ(listed, expected) << project.text;
    }
}

} // namespace
