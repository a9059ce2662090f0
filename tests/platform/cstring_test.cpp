#include "platform/mfc/CString.h"

#include <gtest/gtest.h>

#include <climits>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

LPCSTR Address(const CString& text)
{
    return text;
}

// Every state in which a text can be.
void ExpectText(const CString& text, const std::string& expected)
{
    EXPECT_EQ(std::string(text), expected);
    EXPECT_EQ(text.GetLength(), static_cast<int>(expected.size()));
    EXPECT_EQ(text.IsEmpty(), expected.empty());
    EXPECT_EQ(text.View(), expected);
}

TEST(CString, Construction)
{
    ExpectText(CString(), "");
    ExpectText(CString(static_cast<LPCSTR>(nullptr)), "");
    ExpectText(CString(static_cast<LPCWSTR>(nullptr)), "");
    ExpectText(CString(""), "");
    ExpectText(CString("abc"), "abc");
    ExpectText(CString("abcdef", 3), "abc");
    ExpectText(CString("abcdef", 0), "");
    ExpectText(CString("abcdef", -1), "");
    ExpectText(CString("ab\0def", 6), "ab");
    ExpectText(CString(OLESTR("W1")), "W1");
    ExpectText(CString("a") + "b" + CString("c"), "abc");
    ExpectText("a" + CString(), "a");
    ExpectText(CString() + CString(), "");
}

TEST(CString, CopiesShareUntilOneChanges)
{
    CString original("shared text");
    CString copy(original);
    CString assigned;
    assigned = copy;
    EXPECT_EQ(Address(original), Address(copy));
    EXPECT_EQ(Address(original), Address(assigned));
    EXPECT_EQ(Address(original), Address(original.Mid(0))); // the whole text is no new one

    copy += "!";
    assigned.MakeUpper();
    ExpectText(original, "shared text");
    ExpectText(copy, "shared text!");
    ExpectText(assigned, "SHARED TEXT");

    CString upper(assigned);
    upper.MakeUpper().Replace('!', '?');
    EXPECT_EQ(Address(upper), Address(assigned)); // nothing to change, nothing copied
    upper.GetBuffer(0)[0] = 's';
    upper.ReleaseBuffer();
    ExpectText(upper, "sHARED TEXT");
    ExpectText(assigned, "SHARED TEXT");

    CString moved(std::move(upper));
    ExpectText(moved, "sHARED TEXT");
    upper = moved;
    moved.Empty();
    ExpectText(moved, "");
    ExpectText(upper, "sHARED TEXT");
}

TEST(CString, OperandsMayBePartsOfTheTextItself)
{
    CString text("abcdef");
    text = *&text;
    ExpectText(text, "abcdef");
    text += text;
    ExpectText(text, "abcdefabcdef");
    text += Address(text) + 9;
    ExpectText(text, "abcdefabcdefdef");
    text = Address(text) + 12;
    ExpectText(text, "def");
    const CString sharer(text);
    text = Address(text) + 1;
    ExpectText(text, "ef");
    ExpectText(sharer, "def");
    text.Format("<%s|%s>", Address(text), Address(sharer));
    ExpectText(text, "<ef|def>");
    text.AppendFormat("%s", Address(text));
    ExpectText(text, "<ef|def><ef|def>");
    text = Address(text) + text.GetLength();
    ExpectText(text, "");
}

TEST(CString, PartsAreCutToFit)
{
    const CString text("MOTOR1");
    ExpectText(text.Left(3), "MOT");
    ExpectText(text.Left(0), "");
    ExpectText(text.Left(-1), "");
    ExpectText(text.Left(INT_MAX), "MOTOR1");
    ExpectText(text.Mid(5), "1");
    ExpectText(text.Mid(6), "");
    ExpectText(text.Mid(INT_MAX), "");
    ExpectText(text.Mid(-3), "MOTOR1");
    ExpectText(text.Mid(2, 3), "TOR");
    ExpectText(text.Mid(2, INT_MAX), "TOR1");
    ExpectText(text.Mid(INT_MIN, INT_MAX), "MOTOR1");
    ExpectText(text.Mid(2, -1), "");
    ExpectText(CString().Mid(1, 1), "");
}

TEST(CString, Find)
{
    const CString text("a.bb.a");
    EXPECT_EQ(text.Find('.'), 1);
    EXPECT_EQ(text.Find('.', 2), 4);
    EXPECT_EQ(text.Find('.', 5), -1);
    EXPECT_EQ(text.Find('x'), -1);
    EXPECT_EQ(text.Find("b.a"), 3);
    EXPECT_EQ(text.Find("a", 1), 5);
    EXPECT_EQ(text.Find("b.ab"), -1);
    EXPECT_EQ(text.Find("", 6), 6);
    EXPECT_EQ(text.ReverseFind('.'), 4);
    EXPECT_EQ(text.ReverseFind('x'), -1);
    EXPECT_EQ(CString().Find('x'), -1);
    EXPECT_EQ(CString().Find("x"), -1);
    EXPECT_EQ(CString().ReverseFind('x'), -1);
    for (const int outside : {-1, 7, INT_MIN, INT_MAX}) {
        EXPECT_EQ(text.Find('a', outside), -1) << outside;
        EXPECT_EQ(text.Find("a", outside), -1) << outside;
    }
}

TEST(CString, Changes)
{
    CString text("..path.\xC3\xA4z");
    EXPECT_EQ(text.Replace('.', '_'), 3);
    ExpectText(text, "__path_\xC3\xA4z");
    EXPECT_EQ(text.Replace('.', '_'), 0);
    ExpectText(text.TrimLeft('_'), "path_\xC3\xA4z");
    ExpectText(text.MakeUpper(), "PATH_\xC3\xA4Z"); // bytes above 0x7F stay
    CString blanks("   ");
    ExpectText(blanks.TrimLeft(' '), "");
    ExpectText(blanks.MakeUpper(), "");
    text = OLESTR("\u00E4");
    ExpectText(text, "\xC3\xA4");
}

TEST(CString, Comparison)
{
    EXPECT_TRUE(CString("a") == "a");
    EXPECT_TRUE("a" == CString("a"));
    EXPECT_FALSE(CString("a") == CString("A"));
    EXPECT_TRUE(CString() == CString(""));
    EXPECT_LT(CString("a").Compare("b"), 0);
    EXPECT_GT(CString("ab").Compare("a"), 0);
    EXPECT_GT(CString("\xFF").Compare("a"), 0); // bytes, not signed characters
    EXPECT_EQ(CString().Compare(nullptr), 0);
    EXPECT_EQ(CString("MoTor").CompareNoCase("mOtOR"), 0);
    EXPECT_LT(CString("a").CompareNoCase("AB"), 0);
    EXPECT_GT(CString("\xC3\xA4").CompareNoCase("z"), 0);
}

TEST(CString, FormatOfAnyLength)
{
    CString text;
    for (const int width : {1, 511, 512, 513, 5000}) {
        text.Format("%*d", width, 7);
        ExpectText(text, std::string(static_cast<std::size_t>(width - 1), ' ') + "7");
    }
    text.Format("%s", "");
    ExpectText(text, "");
    text.AppendFormat("%X|%s", 0xAB12U, "x");
    ExpectText(text, "AB12|x");
}

TEST(CString, BufferOfTheCallers)
{
    CString text;
    LPSTR buffer = text.GetBuffer(10);
    EXPECT_EQ(buffer[0], '\0');
    std::copy_n("0123456789", 11, buffer);
    text.ReleaseBuffer();
    ExpectText(text, "0123456789");
    EXPECT_STREQ(text.GetBuffer(3), "0123456789"); // never less room than the text has
    text.ReleaseBuffer(4);
    ExpectText(text, "0123");
    text.GetBuffer(100);
    text.ReleaseBuffer(0);
    ExpectText(text, "");
    text.ReleaseBuffer();
    ExpectText(text, "");
}

TEST(CString, GrowsInFewSteps)
{
    CString text;
    std::string expected;
    std::set<int> moves;
    LPCSTR place = text;
    for (int i = 0; i < 100000; ++i) {
        text += static_cast<char>('a' + i % 26);
        expected += static_cast<char>('a' + i % 26);
        if (Address(text) != place)
            moves.insert(i);
        place = text;
    }
    ExpectText(text, expected);
    EXPECT_LT(moves.size(), 100U);
}

TEST(CString, CopiesLiveOnDifferentThreads)
{
    const CString shared("one text for all");
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([copy = shared]() mutable {
            for (int round = 0; round < 1000; ++round) {
                CString other(copy);
                other += "!";
                CString third;
                third = copy;
                EXPECT_EQ(third.GetLength() + 1, other.GetLength());
            }
            copy.MakeUpper();
        });
    for (std::thread& thread : threads)
        thread.join();
    ExpectText(shared, "one text for all");
}

} // namespace
