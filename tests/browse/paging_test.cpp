// Pages whose first entry is hard to find again.
#include "browse/BrowseFixture.h"

namespace {

void ExpectPagesJoin(const CHostTable& table, const HostBrowse& request)
{
    std::vector<std::string> elements;
    for (const HostElement& element : table.BrowsePage(request, 0).elements)
        elements.push_back(HostPage{0, false, "", {element}}.Text());
    ExpectPages(table, request, elements);
}

TEST(BrowsePaging, ResumesAmongEntriesThatDifferInCaseAlone)
{
    CLoadedExport plant("TYPE S STRUCT A INT @0 'x' A INT @2 'X' \"B|c\" INT @4 \"B|C\" INT @6 d INT @8 D INT @10 END "
                        "VAR V S size 12");
    ExpectPagesJoin(plant.table, {.path = "V", .fields = "C"});
}

// Listing a page makes the type names of all members upper case, also of those that the next page begins with. Names
// that differ in case alone remain what they are; a name may be missing.
TEST(BrowsePaging, LosesNothingWhenAPageChangesTheNextEntry)
{
    CLoadedExport plant("TYPE Point STRUCT X INT @0 END TYPE S STRUCT b Point @0 B Point @0 A Point @4 END VAR V S\n"
                        "TYPE N STRUCT a Point @0 \"\" Point @2 c Point @4 END VAR W N");
    const auto pages = [&](const char* path) {
        std::string names, point;
        do {
            const HostPage page = plant.table.BrowsePage({.path = path, .fields = "A"}, 1, point);
            names += CLoadedExport::Names(page) + "; ";
            point = page.continuation;
        } while (!point.empty() && names.size() < 200);
        return names;
    };
    EXPECT_EQ(pages("V"), "b|U-Point (B:0 - O:0)  > ...; B|U-POINT (B:0 - O:0)  > ...; A|U-POINT (B:0 - O:4)  >; ");
    EXPECT_EQ(pages("W"), "a|U-Point (B:0 - O:0)  > ...; |U-POINT (B:0 - O:2)  > ...; c|U-POINT (B:0 - O:4)  >; ");
}

// Longer than any text of an export: fields stand behind the name. A point is cut inside one of these characters.
TEST(BrowsePaging, ResumesAtAnEntryOfAnyLength)
{
    std::string comment = "'";
    for (int i = 0; i < 341; ++i)
        comment += "\xE2\x82\xAC";
    comment += "'";
    CLoadedExport plant("TYPE S STRUCT A INT @0 " + comment + " B INT @2 " + comment + " C INT @4 " + comment +
                        " END VAR V S VAR T \"ARRAY[-2..5] OF INT\"");
    ExpectPagesJoin(plant.table, {.path = "V", .fields = "CAC"});
    ExpectPagesJoin(plant.table, {.path = "T", .fields = std::string(100, 'A')});
}

} // namespace
