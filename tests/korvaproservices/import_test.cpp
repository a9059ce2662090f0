// What ImportFile answers to whatever stands at a path, and how it reads texts.
#include "korvaproservices/ComponentFixture.h"

#include <fstream>

namespace {

constexpr HRESULT kNoSuchFile = static_cast<HRESULT>(0x80070002U);
constexpr HRESULT kNoAccess = static_cast<HRESULT>(0x80070005U);
constexpr HRESULT kInvalidData = static_cast<HRESULT>(0x8007000DU);

class Import : public CComponentTest
{
protected:
    // "line:column declared used fault"
    std::string Report()
    {
        CInterfacePtr<LoadReport> report;
        EXPECT_EQ(walk->QueryInterface(IID_LoadReport, report.PutVoid()), S_OK);
        LONG line = -1;
        LONG column = -1;
        EXPECT_EQ(report->GetPosition(&line, &column), S_OK);
        CBstr declared;
        CBstr used;
        CBstr fault;
        EXPECT_EQ(report->GetDeclaredEncoding(declared.Put()), S_OK);
        EXPECT_EQ(report->GetUsedEncoding(used.Put()), S_OK);
        EXPECT_EQ(report->GetFault(fault.Put()), S_OK);
        return std::to_string(line) + ":" + std::to_string(column) + " " + Narrow(declared) + " " + Narrow(used) + " " +
               Narrow(fault);
    }
};

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
    EXPECT_EQ(ImportFrom(folder.FilePath("missing.kds")), kNoSuchFile);
    EXPECT_EQ(ImportFrom(""), E_INVALIDARG);
    EXPECT_EQ(import->ImportFile(), E_INVALIDARG); // the path before is forgotten
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
    const struct
    {
        std::string_view bytes;
        const char* place; // line:column
    } refused[] = {{""sv, "1:1"},
                   {" \n"sv, "2:1"},
                   {"text"sv, "1:1"},
                   {"<"sv, "1:2"},
                   {"<a"sv, "1:3"},
                   {"<a>"sv, "1:4"},
                   {"<a></b>"sv, "1:6"},
                   {"<a>\r\n<b>\xC3\xA4\xE4\xB8\xAD</a>"sv, "2:8"},
                   {"<a x=1/>"sv, "1:6"},
                   {"<a x='1/>"sv, "1:7"},
                   {"<a/>\r\r\n\n<b/>"sv, "4:1"},
                   {" \njunk<a><b></a>"sv, "2:1"},
                   {"<a/>j"sv, "1:5"},
                   {"<a/>>"sv, "1:5"},
                   {"<a/> &#32;<!-- -->"sv, "1:6"},
                   {"<![CDATA[x]]><a/>"sv, "1:10"},
                   {"<a/>\0<b/>"sv, "1:5"},
                   {"<a/><!DOCTYPE b"sv, "1:16"},
                   {"<!-- <a/>"sv, "1:10"},
                   {"</a>"sv, "1:3"},
                   {"<a><![CDATA["sv, "1:13"},
                   {"<?xml version='1.0'?>"sv, "1:22"},
                   {"<!DOCTYPE a ["sv, "1:14"},
                   {"<a>\n \0</a>"sv, "2:2"},
                   {"\xEF\xBB\xBF<a>&lt;</a>\n<b/>"sv, "2:1"},
                   {"\xFF\xFE"sv, "1:1"},
                   {"\xFF\xFE<\0a\0/\0>"sv, "1:4"},
                   {"\xFF\xFE<\0a\0/\0>\0j"sv, "1:5"},
                   {"\xFE\xFF\0<\0a"sv, "1:3"},
                   {"\xFF\xFE<\0\xE4\0/\0>\0\n\0\x3D\xD8\0\xDE<\0"sv, "2:1"},
                   {"<?xml version='1.0' encoding='latin1'?>\n<r>\xE4</>"sv, "2:7"},
                   {"\0\0\0\0\0\0\0\0"sv, "1:1"}};
    for (const auto& row : refused) {
        EXPECT_EQ(Load(row.bytes), kInvalidData) << testing::PrintToString(row.bytes);
        EXPECT_EQ(Report().substr(0, Report().find(' ')), row.place) << testing::PrintToString(row.bytes) << Report();
    }
}

TEST_F(Import, ReadsEveryEncoding)
{
    const std::string body = "<r n='\xC3\xA4'>\xE4\xB8\xAD\xF0\x9F\x98\x80<c/></r>";
    const std::string declared = "<?xml version='1.0' encoding='utf-16'?>" + body;
    const std::string mark = "\xEF\xBB\xBF";
    const struct
    {
        std::string bytes;
        std::string encodings; // declared and used
    } exports[] = {
        {body, " UTF-8"},
        {mark + " \n<?xml version='1.0'?><!DOCTYPE r><!-- --><?a b?>" + body + "\n<!-- --> <?c?>\n", " UTF-8"},
        {Utf16(body, false), " UTF-16LE"},
        {Utf16(body, true), " UTF-16BE"},
        {Utf16(mark + declared, false), "utf-16 UTF-16LE"},
        {Utf16(mark + declared, true), "utf-16 UTF-16BE"},
        {Utf16("<?xml version='1.0' encoding='iso-8859-1'?>" + body, false), "iso-8859-1 UTF-16LE"},
        {Utf32(body, false), " UTF-32LE"},
        {Utf32(mark + declared, true), "utf-16 UTF-32BE"},
        {mark + "<?xml version=' encoding=' encoding='latin1'?>" + body, "latin1 UTF-8"},
        {"<?xml version='1.0' encoding='windows-1252'?>" + body, "windows-1252 UTF-8"}};
    for (const auto& row : exports) {
        const ElementPtr root = LoadAndFind(row.bytes, "r");
        ASSERT_TRUE(root);
        EXPECT_EQ(AttributeOf(root, "n"), "\xC3\xA4");
        EXPECT_EQ(TextOf(root), "\xE4\xB8\xAD\xF0\x9F\x98\x80");
        EXPECT_EQ(Report(), "0:0 " + row.encodings + " ");
    }
    for (const char* const name : {"ISO-8859-1", "Latin1"}) {
        const ElementPtr latin = LoadAndFind("<?xml version='1.0' encoding = '"s + name + "' ?><r>\xE4</r>", "r");
        EXPECT_EQ(TextOf(latin), "\xC3\xA4");
    }
}

TEST_F(Import, ReplacesWhatIsNoText)
{
    const struct
    {
        std::string bytes;
        std::string text;
    } rows[] = {
        {"<r>a\xFF\x62\xC3</r>", "a"s + kReplacement + "b" + kReplacement},
        {"\xFF\xFE<\0r\0>\0\x00\xD8z\0\x00\xDC<\0/\0r\0>\0"s, kReplacement + "z"s + kReplacement},
        {"\xFF\xFE<\0r\0>\0\x00\xD8\x00\xE0<\0/\0r\0>\0"s, kReplacement + "\xEE\x80\x80"s},
        {"<\0\0\0r\0\0\0>\0\0\0\0\xD8\0\0\0\0\x11\0<\0\0\0/\0\0\0r\0\0\0>\0\0\0"s,
         kReplacement + std::string(kReplacement)},
    };
    for (const auto& row : rows)
        EXPECT_EQ(TextOf(LoadAndFind(row.bytes, "r")), row.text) << testing::PrintToString(row.bytes);
    for (std::size_t at = 0; at < 16; ++at) {
        std::string text(16, 'x');
        text[at] = '\xE4';
        const ElementPtr root = LoadAndFind("<r>" + text + "</r>", "r");
        EXPECT_EQ(TextOf(root), text.replace(at, 1, kReplacement)) << at;
    }
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
    std::string name;
    for (int i = 0; i < 400; ++i)
        name += "\xE0\xA0\x80"; // more bytes than a conversion by pairs of units expects
    EXPECT_EQ(TagOf(LoadAndFind(Utf16("<" + name + "/>", false), name)), name);
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
