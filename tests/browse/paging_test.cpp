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
// that differ in case alone remain what they are.
TEST(BrowsePaging, LosesNothingWhenAPageChangesTheNextEntry)
{
    CLoadedExport plant("TYPE Point STRUCT X INT @0 END TYPE S STRUCT b Point @0 B Point @0 A Point @4 END VAR V S");
    std::string names;
    std::string point;
    for (int pages = 0; pages == 0 || (pages < 4 && !point.empty()); ++pages) {
        const HostPage page = plant.table.BrowsePage({.path = "V", .fields = "A"}, 1, point);
        ASSERT_EQ(page.elements.size(), 1u);
        names += page.elements[0].name + "; ";
        point = page.continuation;
    }
    EXPECT_EQ(names, "b|U-Point (B:0 - O:0) ; B|U-POINT (B:0 - O:0) ; A|U-POINT (B:0 - O:4) ; ");
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
