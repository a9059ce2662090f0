// Exports that are damaged, and listings that must end.
#include "browse/BrowseFixture.h"

#include <chrono>
#include <functional>

namespace {

TEST(BrowseLimits, AHugeArrayIsListedToItsLimit)
{
    CLoadedExport plant("VAR BIG ARRAY[0..2147483647] OF INT AT %MW0 size 8\n"
                        "VAR LOW ARRAY[-2147483648..2147483646] OF INT AT %MW0 size 8\n"
                        "TYPE Point STRUCT X INT END VAR PTS ARRAY[5..1048585] OF Point AT %MW0 size 8\n");
    // A page costs what it holds, wherever it begins.
    const auto page = [&](const char* path, const char* point) {
        return CLoadedExport::Names(plant.table.BrowsePage({.path = path}, 2, point));
    };
    EXPECT_EQ(page("BIG", ""), "BIG[0], BIG[1] ...");
    EXPECT_EQ(page("BIG", "BIG[1048574]"), "BIG[1048574], BIG[1048575]");
    EXPECT_EQ(page("BIG", "BIG[1048576]"), "");
    EXPECT_EQ(page("BIG", "BIG[2147483647]"), "");
    EXPECT_EQ(page("LOW", ""), "LOW[-2147483648], LOW[-2147483647] ...");
    EXPECT_EQ(page("LOW", "LOW[-2146435074]"), "LOW[-2146435074], LOW[-2146435073]");
    EXPECT_EQ(page("LOW", "LOW[2147483646]"), "");
    EXPECT_EQ(page("PTS", "PTS[1048580]"), "PTS[1048580] >");
    EXPECT_EQ(page("PTS", "PTS[1048581]"), "");
    const auto seconds = [](const std::function<void()>& work) {
        const auto begin = std::chrono::steady_clock::now();
        work();
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    };
    // 1,048,576 elements are looked at, whether they match or not.
    const double whole = seconds([&] {
        EXPECT_EQ(plant.table.Browse({.path = "BIG", .pattern = "BIG[104857"}),
                  "BIG[104857], BIG[1048570], BIG[1048571], BIG[1048572], BIG[1048573], BIG[1048574], BIG[1048575]");
    });
    const double pages = seconds([&] {
        for (int round = 0; round < 30; ++round)
            for (const char* point : {"", "BIG[524288]", "BIG[1048570]"})
                page("BIG", point);
    });
    EXPECT_LT(pages, whole);
}

TEST(BrowseLimits, AListingHolds128MiBOfTexts)
{
    const std::string name(1016, 'N'); // each element repeats it, and has its parent's identifier and a "." besides
    const std::u16string parent(1023, u'P');
    CLoadedExport plant("VAR " + name + " ARRAY[100000..199999] OF INT AT %MW0 size 8");
    const HostPage page = plant.table.BrowsePage({.path = name.c_str(), .parentId = parent.c_str()}, 0);
    EXPECT_EQ(page.elements.size(), (128U << 20U) / (name.size() + std::size("[100000]") - 1 + parent.size() + 1));
}

TEST(BrowseLimits, ArraysWithoutACountHaveNoElements)
{
    CLoadedExport plant("VAR BACK ARRAY[3..1] OF INT AT %MW0 size 8\n"
                        "VAR ALL  ARRAY[-2147483648..2147483647] OF INT AT %MW0 size 8\n"
                        "TYPE Point STRUCT X INT END VAR PTS ARRAY[1..0] OF Point AT %MW0 size 8\n"
                        "TYPE Rows STRUCT R ARRAY[0..1,-2147483648..2147483647] OF Point size 8\n"
                        "  I ARRAY[0..1,-2147483648..2147483647] OF INT size 8 END VAR ROWS Rows\n"
                        "VAR T ARRAY[-2147483648..2147483647] OF Point size 8\n"
                        "VAR LAST ARRAY[2147483646..2147483647] OF INT AT %MW0 size 8\n"
                        "VAR BEYOND ARRAY[99999999998..99999999999] OF INT AT %MW0 size 8\n");
    for (const char* path : {"BACK", "ALL", "PTS", "T", "ROWS.R[0]"}) {
        EXPECT_EQ(plant.table.Browse({.path = path, .fields = "A"}), "") << path;
        EXPECT_EQ(plant.Elements({.path = path}), "") << path;
    }
    for (const char* path : {"PTS[1]", "T[0]", "ROWS.R[0][0]"})
        EXPECT_EQ(plant.Elements({.path = path}), "E_INVALIDARG") << path;
    EXPECT_EQ(plant.table.Lookup("ROWS.I[1]"), "ARRAY[-2147483648..2147483647] OF INT as structured +4 size 4");
    EXPECT_EQ(plant.Elements({.path = "LAST"}), "LAST[2147483646], LAST[2147483647]");
    EXPECT_EQ(plant.Elements({.path = "BEYOND"}), "BEYOND[2147483647]"); // bounds saturate
}

TEST(BrowseLimits, UnusualPathsAndPlaces)
{
    CLoadedExport plant("VAR ROWS ARRAY[0..1] OF Row AT %MW50 TYPE Row ARRAY[0..1] OF INT VAR NONE ARRAYX AT %MW120\n"
                        "VAR CUBE ARRAY[0..1,5..6,-2..-1] OF int AT %MW90 size 16\n"
                        "DFB D IN A INT block 1 @2 size 2 END VAR D1 D block 65535 @4294967295 size 2\n");
    EXPECT_EQ(plant.Elements({.path = "ROWS.ANY", .fields = "A"}),
              "ANY[0]|U-INT (B:0 - O:0) , ANY[1]|U-INT (B:0 - O:0) "); // a name stands for the first element
    EXPECT_EQ(plant.Elements({.path = "CUBE[1,9]"}), "CUBE[1,9][5] >, CUBE[1,9][6] >"); // the first number counts
    EXPECT_EQ(plant.table.Browse({.path = "CUBE", .pattern = "CUBE[1", .fields = "A"}),
              "CUBE[1]|U-ARRAY[5..6,-2..-1] OF INT (B:0 - O:8) ");
    EXPECT_EQ(plant.Elements({.path = "NONE"}), "NONE[0] >");
    EXPECT_EQ(plant.table.Browse({.path = "D1", .fields = "A"}), "A|U-INT (B:65536 - O:2147483649) "); // it saturates
}

} // namespace
