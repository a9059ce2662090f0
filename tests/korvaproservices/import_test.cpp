// What ImportFile answers to whatever stands at a path, and how it reads texts.
#include "korvaproservices/ComponentFixture.h"

#include <fstream>

namespace {

constexpr HRESULT kNoSuchFile = static_cast<HRESULT>(0x80070002U);
constexpr HRESULT kNoAccess = static_cast<HRESULT>(0x80070005U);
constexpr HRESULT kInvalidData = static_cast<HRESULT>(0x8007000DU);

class Import : public CComponentTest
{};

using namespace std::string_literals;
using namespace std::string_view_literals;

// UTF-16 of a UTF-8 text, with its byte order mark when it begins with U+FEFF.
std::string Utf16(std::string_view utf8, bool bigEndian)
{
    const CBstr wide = Wide(utf8);
    std::string bytes;
    for (unsigned i = 0; i < wide.Length(); ++i) {
        const unsigned unit = wide.Get()[i];
        const char low = static_cast<char>(unit & 0xFF);
        const char high = static_cast<char>(unit >> 8);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

// The same of a text whose UTF-16 has pairs of surrogates.
std::string Utf32(std::string_view utf8, bool bigEndian)
{
    const CBstr wide = Wide(utf8);
    std::string bytes;
    for (unsigned i = 0; i < wide.Length(); ++i) {
        std::uint32_t character = wide.Get()[i];
        if ((character & 0xFC00) == 0xD800)
            character = 0x10000 + ((character & 0x3FF) << 10) + (wide.Get()[++i] & 0x3FFU);
        for (const unsigned shift : {0U, 8U, 16U, 24U})
            bytes += static_cast<char>(character >> (bigEndian ? 24 - shift : shift) & 0xFF);
    }
    return bytes;
}

TEST_F(Import, RefusesWhatIsNoFile)
{
    EXPECT_EQ(import->ImportFile(), E_INVALIDARG);
    EXPECT_EQ(import->InitImportWithoutDlg(nullptr), E_INVALIDARG);
    EXPECT_EQ(ImportFrom(""), E_INVALIDARG);
    EXPECT_EQ(import->ImportFile(), E_INVALIDARG);
    EXPECT_EQ(ImportFrom(folder.FilePath("missing.kds")), kNoSuchFile);
    EXPECT_EQ(ImportFrom(folder.FilePath("missing/export.kds")), kNoSuchFile);
    EXPECT_EQ(ImportFrom(folder.WriteFile("file", "x") + "/export.kds"), kNoSuchFile);
    EXPECT_EQ(ImportFrom(folder.Path()), kInvalidData);
}

TEST_F(Import, ReportsMissingAccess)
{
    const std::string file = folder.WriteFile("secret.kds", "<a/>");
    std::filesystem::permissions(file, std::filesystem::perms::none);
    if (std::ifstream(file))
        GTEST_SKIP() << "this user may read every file";
    EXPECT_EQ(ImportFrom(file), kNoAccess);
}

TEST_F(Import, RefusesWhatIsNotWellFormed)
{
    const std::string_view refused[] = {""sv,
                                        " \n"sv,
                                        "text"sv,
                                        "<"sv,
                                        "<a"sv,
                                        "<a>"sv,
                                        "<a></b>"sv,
                                        "<a><b></a>"sv,
                                        "<a x=1/>"sv,
                                        "<a x='1/>"sv,
                                        "<a/><b/>"sv,
                                        "junk<a/>"sv,
                                        "<a/>j"sv,
                                        "<a/>>"sv,
                                        "<a/> &#32;<!-- -->"sv,
                                        "<![CDATA[x]]><a/>"sv,
                                        "<a/>\0<b/>"sv,
                                        "<a/><!DOCTYPE b"sv,
                                        "<!-- <a/>"sv,
                                        "</a>"sv,
                                        "<a><![CDATA["sv,
                                        "<?xml version='1.0'?>"sv,
                                        "<!DOCTYPE a ["sv,
                                        "<a>\0</a>"sv,
                                        "\xFF\xFE"sv,
                                        "\xFF\xFE<\0a\0/\0>"sv,
                                        "\xFE\xFF\0<\0a"sv,
                                        "\xFF\xFE<\0a\0/\0>\0j"sv,
                                        "\0\0\0\0\0\0\0\0"sv};
    for (const std::string_view bytes : refused)
        EXPECT_EQ(Load(bytes), kInvalidData) << testing::PrintToString(bytes);
}

TEST_F(Import, ReadsEveryEncoding)
{
    const std::string body = "<r n='\xC3\xA4'>\xE4\xB8\xAD\xF0\x9F\x98\x80<c/></r>";
    const std::string declared = "<?xml version='1.0' encoding='utf-16'?>" + body;
    const std::string mark = "\xEF\xBB\xBF";
    const std::string exports[] = {body,
                                   mark + " \n<?xml version='1.0'?><!DOCTYPE r><!-- --><?a b?>" + body +
                                       "\n<!-- --> <?c?>\n",
                                   Utf16(body, false),
                                   Utf16(body, true),
                                   Utf16(mark + declared, false),
                                   Utf16(mark + declared, true),
                                   Utf16("<?xml version='1.0' encoding='iso-8859-1'?>" + body, false),
                                   Utf32(body, false),
                                   Utf32(mark + declared, true),
                                   "<?xml version='1.0' encoding='windows-1252'?>" + body};
    for (const std::string& bytes : exports) {
        const ElementPtr root = LoadAndFind(bytes, "r");
        ASSERT_TRUE(root);
        EXPECT_EQ(AttributeOf(root, "n"), "\xC3\xA4");
        EXPECT_EQ(TextOf(root), "\xE4\xB8\xAD\xF0\x9F\x98\x80");
    }
    for (const char* const name : {"ISO-8859-1", "Latin1"}) {
        const ElementPtr latin = LoadAndFind("<?xml version='1.0' encoding = '"s + name + "' ?><r>\xE4</r>", "r");
        EXPECT_EQ(TextOf(latin), "\xC3\xA4");
    }
}

TEST_F(Import, ReplacesWhatIsNoText)
{
    EXPECT_EQ(TextOf(LoadAndFind("<r>a\xFF"
                                 "b\xC3</r>",
                                 "r")),
              "a"s + kReplacement + "b" + kReplacement);
    const std::string halfPairs = "\xFF\xFE<\0r\0>\0\x00\xD8z\0\x00\xDC<\0/\0r\0>\0"s;
    EXPECT_EQ(TextOf(LoadAndFind(halfPairs, "r")), kReplacement + "z"s + kReplacement);
    EXPECT_EQ(TextOf(LoadAndFind("<r>&#xD800;</r>", "r")).substr(0, 3), kReplacement);
}

// Pairs and three-byte characters around every boundary of a conversion piece by piece.
TEST_F(Import, ReadsLongUtf16)
{
    for (const std::size_t shift : {0U, 1U}) {
        std::string text(shift, 'x');
        for (int i = 0; i < 600'000; ++i)
            text += "\xF0\x9F\x98\x80";
        const ElementPtr root = LoadAndFind(Utf16("<r>" + text + "</r>", shift != 0), "r");
        EXPECT_TRUE(TextOf(root) == text);
    }
}

TEST_F(Import, ReplacesTheDocumentBefore)
{
    const ElementPtr first = LoadAndFind("<first><x id='1'/></first>", "first");
    const ListPtr children = ChildrenOf(first);
    EXPECT_TRUE(LoadAndFind("<second/>", "second"));
    EXPECT_FALSE(Find("first"));
    EXPECT_EQ(RestOf(children), "x=1"); // what was handed out stays
    EXPECT_EQ(Load("<broken"), kInvalidData);
    ElementPtr none;
    EXPECT_EQ(walk->FindElement(Wide("second").Get(), none.Put()), E_UNEXPECTED);
    ListPtr noList;
    EXPECT_EQ(walk->GetElementList(Wide("second").Get(), noList.Put()), E_UNEXPECTED);
    EXPECT_EQ(TagOf(first), "first");
}

TEST_F(Import, NestingHasNoLimit)
{
    constexpr int kDepth = 1'000'000;
    std::string text;
    for (int i = 0; i < kDepth; ++i)
        text += "<a>";
    text += "<deepest id='7'/>";
    for (int i = 0; i < kDepth; ++i)
        text += "</a>";
    EXPECT_EQ(AttributeOf(LoadAndFind(text, "deepest"), "id"), "7");
    EXPECT_EQ(CountOf(All("a")), kDepth);
    EXPECT_EQ(Load(text.substr(0, text.size() - 4)), kInvalidData);
}

// An Item that walked would make this take hours.
TEST_F(Import, ItemsOfALongListAreDirect)
{
    constexpr LONG kChildren = 1'000'000;
    std::string text = "<r>";
    for (LONG i = 0; i < kChildren; ++i)
        text += "<x/>";
    const ListPtr list = ChildrenOf(LoadAndFind(text + "</r>", "r"), "x");
    ASSERT_EQ(CountOf(list), kChildren);
    ElementPtr element;
    for (LONG i = 0; i < kChildren; ++i)
        ASSERT_EQ(list->Item(i, element.Put()), S_OK);
}

TEST_F(Import, DeclaredEntitiesStayAsTheyAre)
{
    std::string text = "<!DOCTYPE r [<!ENTITY e0 'ha'>";
    for (int i = 1; i < 30; ++i) {
        const std::string before = std::to_string(i - 1);
        text.append("<!ENTITY e").append(std::to_string(i));
        text.append(" '&e").append(before).append(";&e").append(before).append(";'>");
    }
    text += "<!ENTITY file SYSTEM 'file:///etc/passwd'>]><r a='&e29;'>&file;</r>";
    const ElementPtr root = LoadAndFind(text, "r");
    EXPECT_EQ(AttributeOf(root, "a"), "&e29;");
    EXPECT_EQ(TextOf(root), "&file;");
}

} // namespace
