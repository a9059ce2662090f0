// Pages of any size, joined, are the listing without pages.
#include "browse/BrowseFixture.h"

#include <algorithm>
#include <random>

namespace {

// Random types, each made of elementary ones, of those before it and of unknown ones, and variables of them.
class CRandomExport
{
public:
    explicit CRandomExport(unsigned seed) : random(seed)
    {
        for (int i = 0; i < 4; ++i) {
            const std::string name = Name("T", i);
            switch (Below(3)) {
            case 0:
                text += "TYPE " + name + " STRUCT" + Members() + " END\n";
                break;
            case 1:
                text += "DFB " + name + " IN" + Members() + " END\n";
                break;
            default:
                text += "TYPE " + name + " " + Array(Type()) + "\n";
            }
            types.push_back(name);
        }
        for (int i = 0; i < 9; ++i)
            text +=
                "VAR " + Name("V", i) + " " + (i < 4 ? types[static_cast<std::size_t>(i)] : Type()) + Place() + "\n";
    }

    std::string text;

private:
    int Below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

    // Some names begin like others, some differ in case alone.
    std::string Name(const char* stem, int number)
    {
        const char* tails[] = {"", "x", "X", "\xC3\xA4"};
        return stem + std::to_string(number % 5) + tails[Below(4)] + (number < 5 ? "" : "_");
    }
    std::string Type()
    {
        const char* elementary[] = {"INT", "Bool", "REAL", "WORD", "STRING[4]", "Unknown"};
        if (!types.empty() && Below(3) == 0)
            return types[static_cast<std::size_t>(Below(static_cast<int>(types.size())))];
        return Below(4) == 0 ? Array("INT") : elementary[Below(6)];
    }
    std::string Array(const std::string& element)
    {
        const int lower = Below(5) - 3;
        const std::string bounds = std::to_string(lower) + ".." + std::to_string(lower + Below(4));
        return "ARRAY[" + bounds + (Below(3) == 0 ? ",8..10" : "") + "] OF " + element;
    }
    std::string Place()
    {
        std::string place = Below(2) ? " AT %MW" + std::to_string(Below(9)) : "";
        return place + " block " + std::to_string(Below(2)) + " @" + std::to_string(Below(3)) + " size 12 'c'";
    }
    std::string Members()
    {
        std::string members;
        for (int i = 0, count = 1 + Below(6); i < count; ++i)
            members += " " + Name("M", i) + " " + Type() + " @" + std::to_string(2 * i) + " size 4" +
                       (Below(5) == 0 ? " hidden 1" : "");
        return members;
    }

    std::mt19937 random;
    std::vector<std::string> types;
};

// The path of every branch, the root's first; at most three levels deep.
std::vector<std::string> Branches(const CHostTable& table)
{
    std::vector<std::string> paths{""};
    std::size_t levelEnd = 1;
    for (std::size_t i = 0, level = 0; i < paths.size() && level < 3; ++i) {
        const HostPage page = table.BrowsePage({.path = std::string(paths[i]).c_str(), .leaves = FALSE}, 0);
        for (const HostElement& element : page.elements)
            paths.push_back(paths[i] + element.itemId.substr(paths[i].empty() ? 1 : 0));
        if (i + 1 == levelEnd) {
            levelEnd = paths.size();
            ++level;
        }
    }
    return paths;
}

// Fails when a page is too long, or too short though more follow, or when the pages do not end.
void ExpectPagesJoin(const CHostTable& table, const HostBrowse& request)
{
    const HostPage whole = table.BrowsePage(request, 0);
    ASSERT_EQ(whole.result, 0);
    const std::string expected = whole.Text();
    const std::size_t count = whole.elements.size();
    for (std::size_t size = 1; size <= count + 1; ++size) {
        HostPage joined;
        std::string point;
        std::size_t done = 0;
        do {
            const HostPage page = table.BrowsePage(request, static_cast<DWORD>(size), point);
            joined.elements.insert(joined.elements.end(), page.elements.begin(), page.elements.end());
            ASSERT_EQ(page.more, !page.continuation.empty());
            ASSERT_EQ(page.elements.size(), std::min(size, count - done)) << "size " << size;
            done += size;
            point = page.continuation;
        } while (!point.empty() && done < count);
        ASSERT_EQ(point, "");
        ASSERT_EQ(joined.Text(), expected) << "size " << size;
    }
}

constexpr VARTYPE kVarTypes[] = {0, 2, 0x2011};
constexpr const char* kPatterns[] = {"*", "V1*", "M0"};

TEST(BrowsePaging, JoinsToTheWholeListing)
{
    for (unsigned seed = 1; seed <= 12; ++seed) {
        CRandomExport generated(seed);
        SCOPED_TRACE(generated.text);
        CLoadedExport plant(generated.text);
        for (const std::string& path : Branches(plant.table)) {
            SCOPED_TRACE("path " + path);
            const std::string elementPrefix = path.substr(path.rfind('.') + 1) + "[-";
            for (int flags = 0; flags < 48 && !testing::Test::HasFailure(); ++flags) {
                HostBrowse request{.path = path.c_str(),
                                   .pattern = kPatterns[flags / 8 % 3],
                                   .filter = flags / 24 ? "%UL" : "",
                                   .varType = kVarTypes[(flags + flags / 8) % 3],
                                   .branchesOnly = flags & 1,
                                   .leaves = flags >> 1 & 1,
                                   .branches = flags >> 2 & 1};
                ExpectPagesJoin(plant.table, request);
                if (path.empty())
                    continue;
                request.pattern = flags / 8 % 3 == 1 ? elementPrefix.c_str() : request.pattern;
                request.fields = "AC";
                ExpectPagesJoin(plant.table, request);
                std::string names; // below a path both operations list the same entries
                for (const HostElement& element : plant.table.BrowsePage(request, 0).elements)
                    names += (names.empty() ? "" : ", ") + element.name;
                EXPECT_EQ(plant.table.Browse(request), names);
            }
        }
    }
}

TEST(BrowsePaging, ResumesAmongEntriesThatDifferInCaseAlone)
{
    CLoadedExport plant("TYPE S STRUCT A INT @0 'x' A INT @2 'X' \"B|c\" INT @4 \"B|C\" INT @6 END VAR V S size 8");
    ExpectPagesJoin(plant.table, {.path = "V", .fields = "C"});
}

// Listing a page makes the type names of all members upper case, also of those that the next page begins with.
TEST(BrowsePaging, LosesNothingWhenAPageChangesTheNextEntry)
{
    CLoadedExport plant("TYPE Point STRUCT X INT @0 END TYPE S STRUCT A Point @0 B Point @2 C Point @4 END VAR V S");
    std::string names;
    std::string point;
    do {
        const HostPage page = plant.table.BrowsePage({.path = "V", .fields = "A"}, 1, point);
        ASSERT_EQ(page.elements.size(), 1u);
        names += page.elements[0].name + "; ";
        point = page.continuation;
    } while (!point.empty());
    EXPECT_EQ(names, "A|U-Point (B:0 - O:0) ; B|U-POINT (B:0 - O:2) ; C|U-POINT (B:0 - O:4) ; ");
}

// Longer than any text of an export: fields stand behind the name.
TEST(BrowsePaging, ResumesAtAnEntryOfAnyLength)
{
    const std::string comment = "'" + std::string(1000, 'c') + "'";
    CLoadedExport plant("TYPE S STRUCT A INT @0 " + comment + " B INT @2 " + comment + " C INT @4 " + comment +
                        " END VAR V S");
    ExpectPagesJoin(plant.table, {.path = "V", .fields = "CAC"});
}

} // namespace
