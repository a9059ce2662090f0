// Which definitions and variables an export gives.
#include "import/ImportFixture.h"

#include <gtest/gtest.h>

namespace {

// Exports, several between bars, and the types as dumped.
const std::pair<const char*, const char*> kTypes[] = {
    {"TYPE T array[-5..5] of int|TYPE T array[-5..5] of int STRUCT A INT", "DDTArray T int 2 1 FFFFFFFB 5"},
    {"TYPE M ARRAY[1..2,0..3,4..5] OF Motor TYPE N ARRAY[0..1,0..2] OF BOOL",
     "DDTArray %TEMP_ARRAY0 Motor 0 1 4 5; DDTArray %TEMP_ARRAY1 %TEMP_ARRAY0 0 1 0 3; DDTArray M %TEMP_ARRAY1 0 1 1 "
     "2; "
     "DDTArray %TEMP_ARRAY2 BOOL B 1 0 2; DDTArray N %TEMP_ARRAY2 0 1 0 1"},
    // Without a dimension, and with eleven.
    {"TYPE T ARRAY \"ARRAY[1 ..2] OF REAL\"|TYPE T ARRAY \"ARRAY OF REAL\"|TYPE T ARRAY \"\"|"
     "TYPE T ARRAY[0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1] OF INT|TYPE sfcchart_state STRUCT",
     ""},
    {"TYPE T ARRAY \"1..2 OF INT\"", "DDTArray T INT 2 1 1 2"},
    {"TYPE T ARRAY[0..1]", "DDTArray T  0 1 0 1"}, // no element type is guessed
    {"TYPE T STRUCT END TYPE SFCCHART_STATE STRUCT END TYPE sfcchart_state2 STRUCT END", "DDTStruct SFCCHART_STATE 0"},
    {"TYPE Recipe STRUCT A INT END TYPE RECIPE STRUCT B INT C INT", "DDTStruct RECIPE 2"},
    {"TYPE S STRUCT x INT X INT", "DDTStruct S 2"},
    {"DFB P IN DFB p IN A INT", "DFBDef p 1"},
    {"DFB \"\" IN A INT", "DFBDef 1"},
    // Members that are function blocks leave their function block, but for the first one.
    {"DFB P IN A INT DFB Q IN A P B P C INT", "DFBDef P 1; DFBDef Q 2"},
};

// Name and member count of structures and function blocks; element type, its variant type, dimensions and bounds of
// arrays.
std::string ShortTypes(const std::vector<std::string>& lines)
{
    std::string text;
    for (std::size_t i = 0; i + 3 < lines.size(); ++i) {
        bool array = lines[i] == "DDTArray";
        if (!array && lines[i] != "DDTStruct" && lines[i] != "DFBDef")
            continue;
        text += (text.empty() ? "" : "; ") + lines[i + 1];
        if (array)
            text += " " + lines[i + 3] + " " + lines[i + 4] + " " + lines[i + 5] + " " + lines[i + 6];
        else
            text += lines[i + 3].substr(8); // behind "NbMember"
        ++i;                                // the name's line may look like the first one
    }
    return text;
}

TEST(ImportedTypes, AreThoseThatMakeSense)
{
    for (const auto& [texts, types] : kTypes) {
        for (const std::string& text : Split(texts)) {
            CImport import(text);
            EXPECT_EQ(import.Load(), 0);
            EXPECT_EQ(ShortTypes(import.DumpedLines()), types) << text;
            EXPECT_EQ(import.table.TakeMessages(), "") << text;
        }
    }
}

// Exports and the listing.
const std::pair<const char*, const char*> kVariables[] = {
    {"VAR \"\" INT VAR B Int", "B=!B"},
    {"VAR A Nowhere VAR B \"\" VAR C INT", "C=!C"},
    {"VAR A ARRAY[0..9] OF REAL VAR B ARRAYS", "A=!A >, B=!B >"},
    {"TYPE Motor STRUCT A INT END VAR M motor VAR N MOTOR", "M=!M >, N=!N >"},
    {"VAR Valve INT VAR X INT VAR VALVE WORD", "VALVE=!VALVE, X=!X"},
};

TEST(ImportedVariables, AreThoseOfKnownTypes)
{
    for (const auto& [text, listing] : kVariables) {
        CImport import(text);
        import.Load();
        EXPECT_EQ(import.table.BrowsePage({}, 0).Text(), listing) << text;
        EXPECT_EQ(import.table.TakeMessages(), "") << text;
    }
}

} // namespace
