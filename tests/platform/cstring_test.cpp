#include "platform/mfc/CString.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

namespace {

LPCSTR Address(const CString& text)
{
    return text;
}

// Every state in which a text can be.
void ExpectText(const CString& text, const std::string& expected)
{
    EXPECT_EQ(text.View(), expected);
    EXPECT_STREQ(text, expected.c_str());
    EXPECT_EQ(text.IsEmpty(), expected.empty());
}

std::string Joined(std::initializer_list<CString> texts)
{
    std::string joined;
    for (const CString& text : texts) {
        EXPECT_EQ(text.GetLength(), static_cast<int>(std::string(text).size()));
        joined += std::string(text) + "|";
    }
    return joined;
}

TEST(CString, IsMadeAndCutToFit)
{
    const LPCSTR none = nullptr;
    const LPCWSTR wideNone = nullptr;
    EXPECT_EQ(Joined({none, CString(wideNone), CString("abcdef", 3), CString("abcdef", 0), CString("abcdef", -1)}),
              "||abc|||");
    EXPECT_EQ(Joined({CString("ab\0def", 6), CString(OLESTR("W\u00E4"))}), "ab|W\xC3\xA4|");
    EXPECT_EQ(Joined({CString("a") + "b" + CString("c"), "a" + CString(), CString() + CString()}), "abc|a||");
    const CString text("MOTOR1");
    EXPECT_EQ(Joined({text.Left(3), text.Left(0), text.Left(-1), text.Left(INT_MAX)}), "MOT|||MOTOR1|");
    EXPECT_EQ(Joined({text.Mid(5), text.Mid(6), text.Mid(INT_MAX), text.Mid(-3)}), "1|||MOTOR1|");
    EXPECT_EQ(Joined({text.Mid(2, 3), text.Mid(2, INT_MAX), text.Mid(2, -1)}), "TOR|TOR1||");
    EXPECT_EQ(Joined({text.Mid(INT_MIN, INT_MAX), CString().Mid(1, 1)}), "MOTOR1||");
}

TEST(CString, CopiesShareUntilOneChanges)
{
    CString original("shared `az{");
    CString copy(original);
    CString assigned;
    assigned = copy;
    EXPECT_EQ(Address(original), Address(copy));
    EXPECT_EQ(Address(original), Address(assigned));
    EXPECT_EQ(Address(original), Address(original.Mid(0))); // the whole text is no new one

    copy += "!";
    assigned.MakeUpper();
    ExpectText(original, "shared `az{");
    ExpectText(copy, "shared `az{!");
    ExpectText(assigned, "SHARED `AZ{");

    CString upper(assigned);
    upper.MakeUpper().Replace('!', '?');
    EXPECT_EQ(Address(upper), Address(assigned)); // nothing to change, nothing copied
    EXPECT_EQ(upper.Replace('S', 's'), 1);
    ExpectText(upper, "sHARED `AZ{");
    ExpectText(assigned, "SHARED `AZ{");

    CString moved(std::move(upper));
    upper = moved;
    moved.Empty();
    ExpectText(moved, "");
    ExpectText(upper, "sHARED `AZ{");
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
    text = Address(text) + text.GetLength();
    ExpectText(text, "");
}

TEST(CString, FindsAndCompares)
{
    const CString text("a.bb.a");
    EXPECT_EQ((std::vector{text.Find('.'), text.Find('.', 2), text.Find('.', 5)}), (std::vector{1, 4, -1}));
    EXPECT_EQ((std::vector{text.Find("b.a"), text.Find("a", 1), text.Find("b.ab"), text.Find("", 6)}),
              (std::vector{3, 5, -1, 6}));
    EXPECT_EQ((std::vector{text.ReverseFind('.'), text.ReverseFind('x'), CString().ReverseFind('x')}),
              (std::vector{4, -1, -1}));
    EXPECT_EQ((std::vector{CString().Find('x'), CString().Find("x")}), (std::vector{-1, -1}));
    for (const int outside : {-1, 7, INT_MIN, INT_MAX}) {
        EXPECT_EQ(text.Find('a', outside), -1) << outside;
        EXPECT_EQ(text.Find("a", outside), -1) << outside;
    }
    EXPECT_TRUE(CString("a") == "a" && "a" == CString("a") && CString() == CString(""));
    EXPECT_FALSE(CString("a") == CString("A"));
    EXPECT_LT(CString("a").Compare("b"), 0);
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
    text.AppendFormat("%X|%s", 0xAB12U, "x");
    ExpectText(text, "AB12|x");
}

} // namespace
