// Generated projects, every listing of which is written out by code too simple to be wrong.
#include "browse/BrowseFixture.h"
#include "browse/GeneratedProject.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr unsigned kProjects = 2000;
constexpr std::size_t kBranchesEach = 4; // besides the root
constexpr std::size_t kRequestsEach = 3; // of a branch, drawn with repetition
constexpr int kMostSteps = 16;           // of a path

// What a path leads to.
struct Branch
{
    std::string path, prefix;
    const Type* type; // null: a path that no listing accepts
    const Item* root;
    std::uint32_t block, offset, size;
    int steps = 1;
};

struct Entry
{
    std::string text, id; // the identifier without that of the parent
    bool branch;
};
using Listing = std::vector<Entry>;

// The type of what an array holds in the end.
const Type& Innermost(const Type& type)
{
    return type.kind == Type::kArray ? Innermost(*type.element) : type;
}

VARTYPE VarTypeOf(const Type& type, bool member)
{
    if (type.kind == Type::kElementary)
        return type.varType;
    const Type& inner = Innermost(type);
    if (type.kind != Type::kArray || inner.kind != Type::kElementary)
        return member ? 0 : 0x2011;
    return member ? inner.arrayOfMembers : inner.arrayOfVariables;
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

// Both memory areas are empty and begin at byte 0 of block 0.
std::string AreaAddress(std::uint32_t block, std::uint32_t offset, int bit, std::uint32_t size, bool isBool)
{
    if (block % 65536 != 0 || offset != 0)
        return "";
    if (bit != 255)
        return "%MW0." + std::to_string(bit);
    return size == 1 && isBool ? "%MW0.0" : size == 2 ? "%MW0" : size == 4 ? "%MD0" : "";
}

std::string Place(const std::string& typeName, std::uint32_t block, std::uint32_t offset)
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

// As texts: what has an address and, of single values, what a plain name serves.
Listing Variables(const CGeneratedProject& project, const HostBrowse& request, bool asTexts)
{
    Listing listing;
    for (const Item& variable : project.variables) {
        const Type& type = *variable.type;
        const bool branch = type.kind != Type::kElementary;
        const bool isPlain = type.plain && !(project.uintBlock && type.name == "UINT");
        const bool located = asTexts ? variable.address.find('%') != std::string::npos : !variable.address.empty();
        bool wanted = branch ? request.branches && !asTexts : request.leaves && (isPlain || !asTexts);
        if (request.branchesOnly)
            wanted = branch;
        if (!wanted || (AsksForUnlocated(request) && located) || !Accepts(request, VarTypeOf(type, false)) ||
            !Accepts(request, variable.name))
            continue;
        std::string address = variable.address;
        if (address.empty())
            address = AreaAddress(variable.block, variable.offset, variable.bit, variable.size, type.name == "BOOL");
        if (!asTexts)
            listing.push_back({variable.name, "!" + variable.name, branch});
        else if (!address.empty())
            listing.push_back({variable.name + Fields(request, address, variable.comment), "", branch});
    }
    return listing;
}

Listing Members(const Branch& branch, const HostBrowse& request)
{
    const bool block = branch.type->kind == Type::kBlock;
    Listing listing;
    for (const Item& member : branch.type->members) {
        if (member.hidden || member.removed || !Accepts(request, member.name))
            continue;
        const Type& type = *member.type;
        const bool leaf = type.kind == Type::kElementary;
        const bool typeMatches = Accepts(request, VarTypeOf(type, true));
        bool wanted = block || typeMatches;
        if (request.branchesOnly || (request.branches && !request.leaves))
            wanted = type.IsDerived();
        else if (request.leaves && !request.branches)
            wanted = leaf && typeMatches;
        if (!wanted)
            continue;
        const std::uint32_t inBlock = branch.block + member.block;
        const std::uint32_t offset = branch.offset + member.offset;
        const std::string address = AreaAddress(inBlock, offset, 255, member.size, type.name == "BOOL");
        const std::string place = Place(InCase(true, type.name), inBlock, offset);
        const std::string entry =
            member.name + Fields(request, block && !address.empty() ? address : place + address, member.comment);
        listing.push_back({entry, "." + entry, !leaf});
    }
    return listing;
}

Listing ArrayElements(const Branch& branch, const HostBrowse& request)
{
    const Type& element = *branch.type->element;
    const bool leaf = element.kind == Type::kElementary;
    const bool asBranches = (request.branchesOnly || request.branches) && element.IsDerived();
    const bool asLeaves =
        request.leaves && !element.IsDerived() && Accepts(request, leaf ? element.varType : VARTYPE{0});
    Listing listing;
    if (!asBranches && !asLeaves)
        return listing;
    for (int i = branch.type->lower; i <= branch.type->upper; ++i) {
        const std::string index = "[" + std::to_string(i) + "]";
        if (!Accepts(request, branch.prefix + index))
            continue;
        const std::uint32_t size = branch.size / branch.type->Count();
        const std::uint32_t offset = branch.offset + static_cast<std::uint32_t>(i - branch.type->lower) * size;
        const std::string typeName = element.IsDerived() ? element.name : InCase(true, element.name);
        const std::string address = Place(typeName, branch.block, offset) +
                                    AreaAddress(branch.block, offset, 255, size, element.name == "BOOL");
        const std::string entry = index + Fields(request, address, "");
        listing.push_back({branch.prefix + entry, entry, !leaf});
    }
    return listing;
}

Listing Below(const Branch& branch, const HostBrowse& request)
{
    if (AsksForUnlocated(request) && branch.root->address.find('%') != std::string::npos)
        return {};
    return branch.type->kind == Type::kArray ? ArrayElements(branch, request) : Members(branch, request);
}

std::vector<Branch> Children(const Branch& parent)
{
    std::vector<Branch> children;
    for (const Item& member : parent.type->members) {
        // Of names that differ in case alone a path finds the last, even where an import took that one out.
        const Item& found =
            *std::find_if(parent.type->members.rbegin(), parent.type->members.rend(),
                          [&](const Item& other) { return InCase(true, other.name) == InCase(true, member.name); });
        children.push_back({parent.path + "." + member.name, member.name,
                            found.type->IsDerived() && !found.removed ? found.type : nullptr, parent.root,
                            (parent.block + found.block) % 65536, parent.offset + found.offset, found.size});
    }
    if (parent.type->kind != Type::kArray || parent.type->Count() == 0)
        return children;
    const std::uint32_t size = parent.size / parent.type->Count();
    const Type* element = parent.type->element->IsDerived() ? parent.type->element : nullptr;
    for (std::uint32_t i = 0; i < parent.type->Count(); ++i) {
        const std::string index = "[" + std::to_string(parent.type->lower + static_cast<int>(i)) + "]";
        children.push_back({parent.path + index, parent.prefix + index, element, parent.root, parent.block,
                            parent.offset + i * size, size});
    }
    return children;
}

// Every path of the first levels, those that lead nowhere too, until there are enough.
std::vector<Branch> Branches(const CGeneratedProject& project, std::size_t enough)
{
    std::vector<Branch> branches;
    for (const Item& variable : project.variables) {
        const Type* valueType = variable.type->name == "UINT" ? project.uintBlock : nullptr; // found by its name
        branches.push_back({variable.name, variable.name, variable.type->IsDerived() ? variable.type : valueType,
                            &variable, variable.block, variable.offset, variable.size});
    }
    for (std::size_t i = 0; i < branches.size() && branches.size() < enough; ++i) {
        if (!branches[i].type)
            continue;
        for (Branch& child : Children(branches[i])) {
            child.steps = branches[i].steps + 1;
            child.type = child.steps <= kMostSteps ? child.type : nullptr;
            branches.push_back(child);
        }
    }
    return branches;
}

// One request after the other, until every combination of what can be asked for has had its turn.
class CRequests
{
public:
    HostBrowse Next(const char* path, const Listing& whole)
    {
        constexpr VARTYPE kVarTypes[] = {0, 2, 0, 11, 0, 18, 0, 0x2002, 0, 0x2011, 0, 0x2012, 0, 0x200B};
        constexpr const char* kFilters[] = {"", "x%ULx", "", "%ul"};
        constexpr const char* kFields[] = {"", "A", "CxA"};
        rest = number++;
        HostBrowse request{.path = path, .branchesOnly = Flag(), .leaves = Flag(), .branches = Flag()};
        pattern = PatternOf(Digit(8), whole.empty() ? "" : whole[number % whole.size()].text);
        request.pattern = pattern.c_str();
        request.filter = kFilters[Digit(std::size(kFilters))];
        request.varType = kVarTypes[Digit(std::size(kVarTypes))];
        request.fields = kFields[Digit(std::size(kFields))];
        request.parentId = Digit(2) ? u"P" : nullptr;
        return request;
    }

private:
    BOOL Flag() { return Digit(2) != 0; }
    unsigned Digit(unsigned base) { return std::exchange(rest, rest / base) % base; }

    // Bytes count, not characters.
    static std::string PatternOf(std::size_t kind, const std::string& name)
    {
        const std::string patterns[] = {"", name.substr(0, name.size() / 2), name.substr(0, 1) + "*zz", name + "x",
                                        InCase(name == InCase(false, name), name)};
        return kind < std::size(patterns) ? patterns[kind] : "*";
    }

    unsigned number = 0, rest = 0;
    std::string pattern;
};

std::string Show(const HostBrowse& request)
{
    std::string text = std::string("path ") + request.path + ", pattern " + request.pattern + ", filter " +
                       request.filter + ", type " + std::to_string(request.varType) + ", fields ";
    return text.append(request.fields) + (request.branchesOnly ? ", branches only" : "") +
           (request.leaves ? ", leaves" : "") + (request.branches ? ", branches" : "");
}

// Fails unless the library lists what the model does; counts the entries.
void Compare(const CHostTable& table, const HostBrowse& request, const Listing& texts, const Listing& elements,
             std::size_t& compared)
{
    std::string joinedTexts;
    for (const Entry& entry : texts)
        joinedTexts += (joinedTexts.empty() ? "" : ", ") + entry.text;
    ASSERT_EQ(table.Browse(request), joinedTexts) << Show(request);
    std::vector<std::string> shown;
    for (const Entry& entry : elements)
        shown.push_back(entry.text + "=" + (request.parentId ? "P" : "") + entry.id + (entry.branch ? " >" : ""));
    ASSERT_NO_FATAL_FAILURE(ExpectPages(table, request, shown)) << Show(request);
    compared += texts.size() + elements.size();
}

// Shows every type name in upper case from here on; what the first listing shows has tests of its own.
void ListOnce(const CHostTable& table, const std::vector<Branch>& branches)
{
    for (const Branch& branch : branches) {
        const std::string result = table.Browse({.path = branch.path.c_str()});
        ASSERT_EQ(result == "E_INVALIDARG", branch.type == nullptr) << branch.path;
        if (!branch.type) {
            ASSERT_EQ(table.BrowsePage({.path = branch.path.c_str()}, 0).Text(), result) << branch.path;
        }
    }
}

TEST(BrowseModel, AgreesOnEveryListing)
{
    const CComScope com; // the component stays loaded
    CRequests requests;
    std::size_t compared = 0;
    for (unsigned seed = 1; seed <= kProjects; ++seed) {
        CGeneratedProject project(seed);
        SCOPED_TRACE("seed " + std::to_string(seed));
        CLoadedExport plant(project.text);
        std::vector<Branch> branches = Branches(project, 16);
        ASSERT_NO_FATAL_FAILURE(ListOnce(plant.table, branches)) << project.text;
        std::erase_if(branches, [](const Branch& branch) { return !branch.type; });
        for (std::size_t i = 0; i < kRequestsEach; ++i) {
            const HostBrowse request = requests.Next("", Variables(project, {}, false));
            const Listing texts = Variables(project, request, true), elements = Variables(project, request, false);
            ASSERT_NO_FATAL_FAILURE(Compare(plant.table, request, texts, elements, compared)) << project.text;
        }
        for (std::size_t i = 0; i < kBranchesEach * kRequestsEach && !branches.empty(); ++i) {
            Branch branch = branches[project.Draw(branches.size())];
            if (i % 3 == 0) { // entries of arrays repeat the path as it was asked for
                branch.path = InCase(false, branch.path);
                branch.prefix = InCase(false, branch.prefix);
            }
            const HostBrowse request = requests.Next(branch.path.c_str(), Below(branch, {}));
            const Listing listing = Below(branch, request);
            ASSERT_NO_FATAL_FAILURE(Compare(plant.table, request, listing, listing, compared)) << project.text;
        }
    }
    EXPECT_GT(compared, 30000u);
}

} // namespace
