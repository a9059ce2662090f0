// Which definitions and variables an export gives.
#include "import/ImportFixture.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

// Exports, several between bars, and the types as ShowTypes shows them.
const std::pair<const char*, const char*> kTypes[] = {
    {"TYPE T array[-5..5] of int|TYPE T array[-5..5] of int STRUCT A INT", "T of int 2 1 FFFFFFFB 5"},
    {"TYPE M ARRAY[1..2,0..3,4..5] OF Motor TYPE N ARRAY[0..1,0..2] OF BOOL",
     "%TEMP_ARRAY0 of Motor 0 1 4 5; %TEMP_ARRAY1 of %TEMP_ARRAY0 0 1 0 3; M of %TEMP_ARRAY1 0 1 1 2; "
     "%TEMP_ARRAY2 of BOOL B 1 0 2; N of %TEMP_ARRAY2 0 1 0 1"},
    // Without a dimension, and with eleven.
    {"TYPE T ARRAY \"ARRAY[1 ..2] OF REAL\"|TYPE T ARRAY \"ARRAY OF REAL\"|TYPE T ARRAY \"\"|"
     "TYPE T ARRAY[0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1] OF INT|TYPE sfcchart_state STRUCT",
     ""},
    {"TYPE T ARRAY \"1..2 OF INT\"", "T of INT 2 1 1 2"},
    {"TYPE T ARRAY[0..1]", "T of  0 1 0 1"}, // no element type is guessed
    {"TYPE T STRUCT END TYPE SFCCHART_STATE STRUCT END TYPE sfcchart_state2 STRUCT END", "SFCCHART_STATE 0"},
    {"TYPE Recipe STRUCT A INT END TYPE RECIPE STRUCT B INT C INT", "RECIPE 2 B:INT C:INT"},
    {"TYPE S STRUCT x INT X INT", "S 2 x:INT X:INT"},
    {"DFB P IN DFB p IN A INT", "p 1 A:INT"},
    {"DFB \"\" IN A INT", " 1 A:INT"},
    // Generated names count up over types, members and variables; a declaration asked for again draws none. A
    // declaration of several dimensions is registered once more under itself, with the name of its outermost part.
    {"TYPE T ARRAY[0..1,0..2,0..3] OF INT TYPE S STRUCT M ARRAY[0..1,0..2] OF Int N ARRAY[0..4] OF INT END\n"
     "VAR A array[0..1,0..2] of int VAR B ARRAY[0..1,0..3] OF INT VAR C ARRAY[0..4] OF INT VAR D T",
     "%TEMP_ARRAY0 of INT 2 1 0 3; %TEMP_ARRAY1 of %TEMP_ARRAY0 0 1 0 2; T of %TEMP_ARRAY1 0 1 0 1; "
     "%TEMP_ARRAY2 of INT 2 1 0 2; %TEMP_ARRAY3 of %TEMP_ARRAY2 0 1 0 1; %TEMP_ARRAY3 of %TEMP_ARRAY2 0 1 0 1; "
     "ARRAY[0..4] OF INT of INT 2 1 0 4; S 2 M:ARRAY[0..1,0..2] OF Int N:ARRAY[0..4] OF INT; "
     "%TEMP_ARRAY4 of INT 2 1 0 3; %TEMP_ARRAY5 of %TEMP_ARRAY4 0 1 0 1; %TEMP_ARRAY5 of %TEMP_ARRAY4 0 1 0 1; "
     "A:%TEMP_ARRAY3 B:%TEMP_ARRAY5 C:ARRAY[0..4] OF INT D:T"},
    // The element type's name turns upper-case when the array is first classified, parameters behind the first one
    // when function blocks are taken out: all that are function blocks themselves but the first.
    {"TYPE T ARRAY[0..1] OF Real TYPE U ARRAY[0..1] OF Real TYPE S STRUCT A int B Sub END VAR V U\n"
     "DFB F IN A Int B Int C Sub END DFB G IN A F B F C INT",
     "T of Real 4 1 0 1; U of REAL 4 1 0 1; S 2 A:int B:Sub; F 3 A:Int B:INT C:SUB; G 2 A:F C:INT; V:U"},
};

// Of arrays the element type, its variant type, dimensions and bounds; of structures and function blocks the members
// and their types; then the variables and their types.
std::string ShowTypes(const std::vector<std::string>& lines)
{
    std::string text;
    for (std::size_t i = 0; i + 3 < lines.size(); ++i) {
        const bool array = lines[i] == "DDTArray";
        if (array || lines[i] == "DDTStruct" || lines[i] == "DFBDef") {
            text +=
                (text.empty() ? "" : "; ") + lines[i + 1].substr(std::min(lines[i].size() + 1, lines[i + 1].size()));
            text += array ? " of " + lines[i + 3] + " " + lines[i + 4] + " " + lines[i + 5] + " " + lines[i + 6]
                          : lines[i + 3].substr(8); // behind "NbMember"
            ++i;                                    // the name's line may look like the first one
        } else if (lines[i].starts_with("DDT/DFB-Member ")) {
            text += " " + lines[i].substr(15) + ":" + lines[i + 2];
        } else if (lines[i].starts_with("NbItem")) {
            text += text.empty() ? "" : ";";
        } else if (lines[i].starts_with("XMLItem ")) {
            text += (text.empty() ? "" : " ") + lines[i].substr(8) + ":" + lines[i + 3];
        }
    }
    return text;
}

TEST(ImportedTypes, AreThoseThatMakeSense)
{
    for (const auto& [texts, types] : kTypes) {
        for (const std::string& text : Split(texts)) {
            CImport import(text);
            EXPECT_EQ(import.Load(), 0);
            EXPECT_EQ(ShowTypes(import.DumpedLines()), types) << text;
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
