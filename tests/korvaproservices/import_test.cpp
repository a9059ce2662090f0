// What ImportFile answers to whatever stands at a path, and how it reads texts.
#include "korvaproservices/ComponentFixture.h"

#include <fstream>

namespace {

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
        return std::to_string(line) + ":" + std::to_string(column) + " " +
               Delivered([&](BSTR* name) { return report->GetDeclaredEncoding(name); }) + " " +
               Delivered([&](BSTR* name) { return report->GetUsedEncoding(name); }) + " " +
               Delivered([&](BSTR* text) { return report->GetFault(text); });
    }
};

using namespace std::string_literals;
using namespace std::string_view_literals;

// A UTF-8 text in UTF-16 or UTF-32, units of 2 or 4 bytes; with its byte order mark when it begins with U+FEFF.
std::string Encoded(const std::string& utf8, unsigned width, bool bigEndian)
{
    const CBstr wide = Wide(utf8);
    std::string bytes;
    for (unsigned i = 0; i < wide.Length(); ++i) {
        std::uint32_t unit = wide.Get()[i];
        if (width == 4 && (unit & 0xFC00) == 0xD800)
            unit = 0x10000 + ((unit & 0x3FF) << 10) + (wide.Get()[++i] & 0x3FFU);
        for (unsigned at = 0; at < width; ++at)
            bytes += static_cast<char>(unit >> 8 * (bigEndian ? width - 1 - at : at) & 0xFF);
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

TEST_F(Import, RefusesWhatIsNotWellFormed)
{
    const struct
    {
        std::string_view bytes;
        const char* place; // line:column
    } refused[] = {{"", "1:1"},
                   {"text", "1:1"},
                   {"<a", "1:3"},
                   {"<a></b>", "1:6"},
                   {"<a><  b/></a>", "1:5"},
                   {"<a x='1/>", "1:7"},
                   {"<a/>j", "1:5"},
                   {"<a/>>", "1:5"},
                   {"<a/> &#32;<!-- -->", "1:6"},
                   {"<![CDATA[x]]><a/>", "1:10"},
                   {"<a/><!DOCTYPE b", "1:16"},
                   {"<?xml version='1.0'?>", "1:22"},
                   {" \njunk<a><b></a>", "2:1"},
                   {"<a/>\r\r\n\n<b/>", "4:1"},
                   {"<a>\r\n<b>\xC3\xA4\xE4\xB8\xAD</a>", "2:8"},
                   {"<a/>\0<b/>"sv, "1:5"},
                   {"\xFF\xFE", "1:1"},
                   {"\xFF\xFE<\0a\0/\0>"sv, "1:4"},
                   {"\xFE\xFF\0<\0a"sv, "1:3"}};
    for (const auto& row : refused) {
        EXPECT_EQ(Load(row.bytes), kInvalidData) << testing::PrintToString(row.bytes);
        EXPECT_EQ(Report().substr(0, Report().find(' ')), row.place) << testing::PrintToString(row.bytes) << Report();
    }
    EXPECT_EQ(Load("<?xml version='1.0' encoding='latin1'?>\n<r>\xE4</>"), kInvalidData);
    EXPECT_EQ(Report().substr(0, 22), "2:7 latin1 ISO-8859-1 ");
    EXPECT_EQ(Load(Encoded("\xEF\xBB\xBF<\xC3\xA4>&lt;</\xC3\xA4>\n\xF0\x9F\x98\x80<b/>", 2, false)), kInvalidData);
    EXPECT_EQ(Report(), "2:1  UTF-16LE Text outside of the root element");
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
        {Encoded(body, 2, false), " UTF-16LE"},
        {Encoded(body, 2, true), " UTF-16BE"},
        {Encoded(mark + declared, 2, false), "utf-16 UTF-16LE"},
        {Encoded(mark + declared, 2, true), "utf-16 UTF-16BE"},
        {Encoded("<?xml version='1.0' encoding='iso-8859-1'?>" + body, 2, false), "iso-8859-1 UTF-16LE"},
        {Encoded(body, 4, false), " UTF-32LE"},
        {Encoded(body, 4, true), " UTF-32BE"},
        {Encoded(mark + body, 4, false), " UTF-32LE"},
        {Encoded(mark + declared, 4, true), "utf-16 UTF-32BE"},
        {mark + "<?xml version=' encoding=' encoding='latin1'?>" + body, "latin1 UTF-8"},
        {"<?xml version=\"1.0\" encoding=\"windows-1252\"?>" + body, "windows-1252 UTF-8"}};
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
        std::string text(20, 'x'); // at its end Wine takes the bytes behind for a part of the character
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
        const ElementPtr root = LoadAndFind(Encoded("<r>" + text + "</r>", 2, shift != 0), "r");
        EXPECT_TRUE(TextOf(root) == text);
    }
    std::string name;
    for (int i = 0; i < 400; ++i)
        name += "\xE0\xA0\x80"; // more bytes than a conversion by pairs of units expects
    EXPECT_EQ(TagOf(LoadAndFind(Encoded("<" + name + "/>", 2, false), name)), name);
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
