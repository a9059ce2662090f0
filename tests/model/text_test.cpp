// Array declarations, numbers and converted texts.
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
    const char* text;
    const char* shown;
};

const TextCase kDeclarations[] = {
    {"ARRAY[0..9] OF INT", "0..9 of INT"},
    {"array[-5..+5] of Int", "-5..5 of Int"},
    {"ARRAY[1..2,0..3] OF REAL", "1..2 0..3 of REAL"},
    {"ARRAY[1..2, 0..3, \t-1.. 7] Of X", "1..2 0..3 -1..7 of X"},
    {"ARRAY[ 1..2] OF X", "1..2 of X"},
    // Blanks stand in front of numbers only; reading stops where the text does not fit.
    {"ARRAY[1 ..2] OF REAL", "of REAL"},
    {"ARRAY[1..2 ,0..3] OF REAL", "1..2 of REAL"},
    {"ARRAY[1..2,,0..3] OF REAL", "1..2 of REAL"},
    {"ARRAY[,1..2] OF REAL", "1..2 of REAL"},
    {"ARRAY[1..2,] OF REAL", "1..2 of REAL"},
    {"ARRAY[1..2;0..3] OF REAL", "1..2 of REAL"},
    {"ARRAY[1..20..3] OF REAL", "1..20 of REAL"},
    {"ARRAY[1..20 3..4] OF REAL", "1..20 3..4 of REAL"}, // no comma is asked for
    {"ARRAY[1...2] OF REAL", "of REAL"},
    {"ARRAY[1.2] OF REAL", "of REAL"},
    {"ARRAY[1..x] OF REAL", "of REAL"},
    {"ARRAY[1..] OF REAL", "of REAL"},
    {"ARRAY[- 1..2] OF REAL", "of REAL"},
    {"ARRAY[--1..2] OF REAL", "of REAL"},
    {"ARRAY[1..2", "1..2 of "},
    {"ARRAY[", "of "},
    {"ARRAY[]", "of "},
    {"ARRAYX", "of "},
    {"", "of "},
    {"7..8 OF INT", "7..8 of INT"}, // without a bracket from the first character on
    // The first keyword counts, wherever it stands.
    {"ARRAY[0..1] OF ARRAY[2..3] OF INT", "0..1 of ARRAY[2..3] OF INT"},
    {"ARRAY[0..1] OF  INT ", "0..1 of  INT "},
    {"ARRAY[0..1] OF ", "0..1 of "},
    {"ARRAY[0..1] OF", "0..1 of "},
    {"ARRAY[0..1]OF INT", "0..1 of "},
    {"X OF ARRAY[0..1] oF Y", "0..1 of ARRAY[0..1] oF Y"},
    {" OF [3..4]", "3..4 of [3..4]"},
    // Reversed and beyond 32 bits.
    {"ARRAY[9..0] OF INT", "9..0 of INT"},
    {"ARRAY[-99999999999999999999..99999999999999999999] OF INT", "-2147483648..2147483647 of INT"},
    {"ARRAY[2147483648..-2147483649] OF INT", "2147483647..-2147483648 of INT"},
    {"ARRAY[00000000000000000000001..2] OF INT", "1..2 of INT"},
};

TEST(ArrayDeclaration, IsReadAsFarAsItFits)
{
    for (const TextCase& row : kDeclarations)
        EXPECT_EQ(ShowDeclaration(row.text), row.shown) << row.text;
}

TEST(ArrayDeclaration, HasAtMostTenDimensions)
{
    std::string text = "ARRAY[";
    std::string shown;
    for (int i = 0; i < 10; ++i) {
        text += std::to_string(i) + "..9,";
        shown += std::to_string(i) + "..9 ";
    }
    EXPECT_EQ(ShowDeclaration(text + "] OF X"), shown + "of X");
    EXPECT_EQ(ShowDeclaration(text + "y] OF X"), shown + "of X");
    EXPECT_EQ(ShowDeclaration(text + "0..1] OF X"), shown + "and more of X");
    EXPECT_EQ(ShowDeclaration(text + text.substr(6) + "] OF X"), shown + "and more of X");
}

TEST(ArrayBounds, CountOnlyWhatFits32Bits)
{
    const std::int32_t low = INT32_MIN, high = INT32_MAX;
    const struct
    {
        ArrayBounds bounds;
        std::uint32_t count;
    } rows[] = {{{0, 0}, 1},
                {{-5, 5}, 11},
                {{1, 0}, 0},
                {{high, low}, 0},
                {{low, high}, 0},
                {{low, high - 1}, UINT32_MAX},
                {{low + 1, high}, UINT32_MAX},
                {{0, high}, 0x80000000},
                {{low, low}, 1}};
    for (const auto& row : rows)
        EXPECT_EQ(row.bounds.ElementCount(), row.count) << row.bounds.lower << ".." << row.bounds.upper;
}

TEST(TextNumber, StopsAtTheFirstOtherCharacterAndSaturates)
{
    const struct
    {
        const char* text;
        std::int32_t number;
    } rows[] = {{"", 0},
                {"0", 0},
                {"12", 12},
                {" \t\r\n\v\f+12x9", 12},
                {"-12", -12},
                {"- 12", 0},
                {"+-1", 0},
                {"x1", 0},
                {"2147483647", INT32_MAX},
                {"2147483648", INT32_MAX},
                {"-2147483648", INT32_MIN},
                {"-2147483649", INT32_MIN},
                {"4294967296", INT32_MAX},
                {"18446744073709551617", INT32_MAX},
                {"-18446744073709551617", INT32_MIN},
                {"0000000000000000000012", 12},
                {"1,2", 1},
                {"\xFF"
                 "1",
                 0}};
    for (const auto& row : rows) {
        EXPECT_EQ(ParseNumber(row.text), row.number) << row.text;
        EXPECT_EQ(ParseNumber(std::u16string(row.text, row.text + std::char_traits<char>::length(row.text)).c_str()),
                  row.number)
            << row.text;
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
        EXPECT_EQ(Converted(std::u16string(units, u'\u20AC')).size(), std::min<std::size_t>(units, 341) * 3) << units;
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
    EXPECT_EQ(Converted(std::u16string(1021, u'a') + high), std::string(1021, 'a'));
}

} // namespace
