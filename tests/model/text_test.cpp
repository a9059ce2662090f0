// Array declarations, numbers and converted texts.
#include "support/Split.h"
#include "symbkds/model/ArrayDeclaration.h"
#include "symbkds/model/TextNumber.h"
#include "symbkds/model/WideToUtf8.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

// "1..2 0..3 of REAL"
std::string ShowDeclaration(const std::string& text)
{
    const ArrayDeclaration declaration(text.c_str());
    std::string shown;
    for (int i = 0; i < declaration.dimensionCount; ++i) {
        const ArrayBounds& bounds = declaration.bounds[static_cast<std::size_t>(i)];
        shown += std::to_string(bounds.lower) + ".." + std::to_string(bounds.upper) + " ";
    }
    return shown + (declaration.tooManyDimensions ? "and more of " : "of ") +
           std::string(declaration.elementTypeName.View());
}

struct TextCase
{
    const char* texts; // several between bars
    const char* shown;
};

const TextCase kDeclarations[] = {
    {"ARRAY[0..9] OF INT", "0..9 of INT"},
    {"array[-5..+5] of Int", "-5..5 of Int"},
    {"ARRAY[1..2, 0..3, \t-1.. 7] Of X", "1..2 0..3 -1..7 of X"},
    {"ARRAY[ 1..2] OF X", "1..2 of X"},
    // Blanks stand in front of numbers only; reading stops where the text does not fit.
    {"ARRAY[1 ..2] OF REAL|ARRAY[1...2] OF REAL|ARRAY[0.15] OF REAL|ARRAY[1..x] OF REAL|ARRAY[1..] OF REAL|"
     "ARRAY[- 1..2] OF REAL|ARRAY[--1..2] OF REAL",
     "of REAL"},
    {"ARRAY[1..2 ,0..3] OF REAL|ARRAY[1..2,,0..3] OF REAL|ARRAY[,1..2] OF REAL|ARRAY[1..2,] OF REAL|"
     "ARRAY[1..2;0..3] OF REAL",
     "1..2 of REAL"},
    {"ARRAY[1..20..3] OF REAL", "1..20 of REAL"},
    {"ARRAY[1..20 3..4] OF REAL", "1..20 3..4 of REAL"}, // no comma is asked for
    {"ARRAY[1..2", "1..2 of "},
    {"ARRAY[|ARRAY[]|ARRAYX|", "of "},
    {"7..8 OF INT", "7..8 of INT"}, // without a bracket from the first character on
    // The first keyword counts, wherever it stands.
    {"ARRAY[0..1] OF ARRAY[2..3] OF INT", "0..1 of ARRAY[2..3] OF INT"},
    {"ARRAY[0..1] OF  INT ", "0..1 of  INT "},
    {"ARRAY[0..1] OF |ARRAY[0..1] OF|ARRAY[0..1]OF INT", "0..1 of "},
    {"X OF ARRAY[0..1] oF Y", "0..1 of ARRAY[0..1] oF Y"},
    {" OF [3..4]", "3..4 of [3..4]"},
    // Ten dimensions and no more.
    {"ARRAY[0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,] OF X|"
     "ARRAY[0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,y] OF X",
     "0..1 0..1 0..1 0..1 0..1 0..1 0..1 0..1 0..1 0..1 of X"},
    {"ARRAY[0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,2..3] OF X|"
     "ARRAY[0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,2..3,4..5] OF X",
     "0..1 0..1 0..1 0..1 0..1 0..1 0..1 0..1 0..1 0..1 and more of X"},
    // Reversed and beyond 32 bits.
    {"ARRAY[9..0] OF INT", "9..0 of INT"},
    {"ARRAY[-99999999999999999999..99999999999999999999] OF INT", "-2147483648..2147483647 of INT"},
    {"ARRAY[2147483648..-2147483649] OF INT", "2147483647..-2147483648 of INT"},
    {"ARRAY[00000000000000000000001..2] OF INT", "1..2 of INT"},
};

TEST(ArrayDeclaration, IsReadAsFarAsItFits)
{
    for (const TextCase& row : kDeclarations)
        for (const std::string& text : Split(row.texts))
            EXPECT_EQ(ShowDeclaration(text), row.shown) << text;
}

TEST(TextNumber, StopsAtTheFirstOtherCharacterAndSaturates)
{
    const std::pair<const char*, std::int32_t> rows[] = {
        {"|0|- 12|+-1|x1|\xFF\x31", 0},
        {"12| \t\r\n\v\f+12x9|0000000000000000000012", 12},
        {"-12", -12},
        {"1,2", 1},
        {"2147483647|2147483648|4294967296|18446744073709551617", INT32_MAX},
        {"-2147483648|-2147483649|-18446744073709551617", INT32_MIN}};
    for (const auto& [texts, number] : rows) {
        for (const std::string& text : Split(texts)) {
            EXPECT_EQ(ParseNumber(text.c_str()), number) << text;
            EXPECT_EQ(ParseNumber(std::u16string(text.begin(), text.end()).c_str()), number) << text;
        }
    }
    EXPECT_EQ(ParseNumber(static_cast<const char*>(nullptr)), 0);
    EXPECT_EQ(ParseNumber(u"\u0661"), 0); // digits of other scripts are none
    const char* rest = " 7..8";
    std::int32_t number = 0;
    EXPECT_TRUE(ReadNumber(rest, number));
    EXPECT_STREQ(rest, "..8");
}

std::string Converted(const std::u16string& text)
{
    return std::string(WideToUtf8(reinterpret_cast<LPCWSTR>(text.c_str())).View());
}

TEST(WideToUtf8, KeepsWholeCharactersInItsLimit)
{
    const std::u16string a1022(1022, u'a');
    const std::string bytes(1022, 'a');
    EXPECT_EQ(WideToUtf8(nullptr).View(), "");
    EXPECT_EQ(Converted(u""), "");
    EXPECT_EQ(Converted(u"a\u00E4\u20AC\U0001F600z"), "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80z");
    EXPECT_EQ(Converted(a1022 + u"b"), bytes + "b");
    EXPECT_EQ(Converted(a1022 + u"bc"), bytes + "b");
    EXPECT_EQ(Converted(a1022 + u"\u00E4"), bytes);  // two bytes do not fit into one
    EXPECT_EQ(Converted(a1022 + u"\u00E4z"), bytes); // nothing behind what did not fit
    EXPECT_EQ(Converted(a1022.substr(2) + u"\u20AC"), bytes.substr(2) + "\xE2\x82\xAC");
    EXPECT_EQ(Converted(a1022.substr(1) + u"\u20AC"), bytes.substr(1));
    EXPECT_EQ(Converted(a1022.substr(3) + u"\U0001F600"), bytes.substr(3) + "\xF0\x9F\x98\x80");
    EXPECT_EQ(Converted(a1022.substr(2) + u"\U0001F600"), bytes.substr(2));
    for (std::size_t units : {340u, 341u, 342u, 343u, 100000u}) // 341 of them fill the limit
        for (const char16_t unit : {u'\u20AC', u'\u0800'})      // the second is the first of three bytes
            EXPECT_EQ(Converted(std::u16string(units, unit)).size(), std::min<std::size_t>(units, 341) * 3) << units;
}

TEST(WideToUtf8, ReplacesHalvesOfPairs)
{
    const std::u16string high(1, static_cast<char16_t>(0xD83D)), low(1, static_cast<char16_t>(0xDE00));
    const std::string replacement = "\xEF\xBF\xBD";
    EXPECT_EQ(Converted(u"a" + high + u"b"), "a" + replacement + "b");
    EXPECT_EQ(Converted(u"a" + high), "a" + replacement);
    EXPECT_EQ(Converted(low + high), replacement + replacement);
    EXPECT_EQ(Converted(high + high + low), replacement + "\xF0\x9F\x98\x80");
    EXPECT_EQ(Converted(std::u16string(1020, u'a') + high), std::string(1020, 'a') + replacement);
    EXPECT_EQ(Converted(std::u16string(1020, u'a') + high + u"\uE000"), std::string(1020, 'a') + replacement);
    EXPECT_EQ(Converted(std::u16string(1021, u'a') + high), std::string(1021, 'a'));
}

} // namespace
