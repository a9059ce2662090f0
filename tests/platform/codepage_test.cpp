#include "platform/mfc/Conversion.h"
#include "platform/win32/CodePage.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using WideText = std::basic_string<WCHAR>;

struct PairCase
{
    const char* narrow;
    LPCWSTR wide;
};

TEST(CodePage, WellFormedTextGoesBothWays)
{
    const PairCase cases[] = {
        {"MOTOR_1.SPEED[12]", OLESTR("MOTOR_1.SPEED[12]")},
        {"F\xC3\xB6rderband 7, links", OLESTR("F\u00F6rderband 7, links")},
        {"\xC2\x80\xDF\xBF", OLESTR("\u0080\u07FF")},
        {"\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF", OLESTR("\u0800\uD7FF\uE000\uFFFF")},
        {"12345678\xF0\x90\x80\x80xyz\xF4\x8F\xBF\xBF", OLESTR("12345678\U00010000xyz\U0010FFFF")}};
    for (const PairCase& row : cases) {
        EXPECT_EQ(Widen(row.narrow, CP_UTF8), row.wide) << row.narrow;
        EXPECT_EQ(Narrow(row.wide, CP_UTF8), row.narrow);
    }
}

// One U+FFFD for the longest beginning of a character, one for each byte that begins none.
TEST(CodePage, IllFormedBytesBecomeReplacements)
{
    const PairCase cases[] = {
        {"a\x80z", OLESTR("a\uFFFDz")},                           // a continuation alone
        {"\xC0\xAF\xC1\xBF", OLESTR("\uFFFD\uFFFD\uFFFD\uFFFD")}, // overlong, two bytes
        {"\xE0\x80\xAFz", OLESTR("\uFFFD\uFFFD\uFFFDz")},         // overlong, three bytes
        {"\xF0\x8F\xBF\xBF", OLESTR("\uFFFD\uFFFD\uFFFD\uFFFD")}, // overlong, four bytes
        {"\xED\xA0\x80", OLESTR("\uFFFD\uFFFD\uFFFD")},           // a surrogate
        {"\xF4\x90\x80\x80", OLESTR("\uFFFD\uFFFD\uFFFD\uFFFD")}, // beyond U+10FFFF
        {"\xF5\xFF", OLESTR("\uFFFD\uFFFD")},                     // bytes that begin nothing
        {"\xE2\x82", OLESTR("\uFFFD")},                           // cut short at the end
        {"\xF0\x9F\x98z\xC3", OLESTR("\uFFFDz\uFFFD")},           // cut short by a letter, and at the end
        {"\xF0\x9F\xE2\x82\xAC", OLESTR("\uFFFD\u20AC")},         // cut short by a character
        {"long ascii run \xFF and on", OLESTR("long ascii run \uFFFD and on")},
    };
    for (const PairCase& row : cases)
        EXPECT_EQ(Widen(row.narrow, CP_UTF8), row.wide) << testing::PrintToString(row.narrow);
    EXPECT_EQ(Narrow(OLESTR("\xD800\xE000"), CP_UTF8), "\xEF\xBF\xBD\xEE\x80\x80"); // half a pair
    for (std::size_t at = 0; at < 16; ++at) { // ASCII is looked through several units at once
        std::string narrow(16, 'a');
        narrow[at] = '\xE4';
        WideText wide(16, 'a');
        wide[at] = 0xFFFD;
        EXPECT_EQ(Widen(narrow, CP_UTF8), wide) << at;
        wide[at] = 0xE4;
        EXPECT_EQ(Narrow(wide, CP_UTF8), narrow.replace(at, 1, "\xC3\xA4")) << at;
    }
}

TEST(CodePage, LengthsAndRoom)
{
    WCHAR wide[8] = {};
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "abc", -1, nullptr, 0), 4); // the terminator counts
    EXPECT_EQ(MultiByteToWideChar(CP_THREAD_ACP, 0, "abc", -1, wide, 4), 4);
    EXPECT_EQ(WideText(wide), OLESTR("abc"));
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "a\0b", 3, wide, 8), 3); // a null inside is a character
    EXPECT_EQ(wide[2], u'b');

    wide[3] = u'#';
    SetLastError(0);
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "abcdefghijklmnop", -1, wide, 3), 0);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(wide[3], u'#'); // nothing behind the room is touched

    char narrow[8] = {};
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, OLESTR("\u20AC"), -1, nullptr, 0, nullptr, nullptr), 4);
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, OLESTR("\u20AC"), -1, narrow, 4, nullptr, nullptr), 4);
    EXPECT_STREQ(narrow, "\xE2\x82\xAC");
    SetLastError(0);
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, OLESTR("\u20AC"), -1, narrow, 3, nullptr, nullptr), 0);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
}

} // namespace
