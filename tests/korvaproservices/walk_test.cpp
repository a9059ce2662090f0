// Reading elements and lists of a loaded document.
#include "korvaproservices/ComponentFixture.h"

namespace {

class Walk : public CComponentTest
{};

using namespace std::string_literals;

TEST_F(Walk, JoinsTexts)
{
    const struct
    {
        const char* content;
        std::string text;
    } rows[] = {{"", ""},
                {"plain", "plain"},
                {"  ", "  "},
                {" a b ", " a b "},
                {"a\r\nb\rc", "a\nb\nc"},
                {"a<![CDATA[<&>]]>b", "a<&>b"},
                {"<![CDATA[x]]><![CDATA[y]]>", "xy"},
                {"a<!-- no -->b<?no no?>c", "abc"},
                {"one<x>inner</x>two", "onetwo"},
                {"<x/>late<x/><![CDATA[r]]>", "later"},
                {"&lt;&gt;&amp;&quot;&apos;", "<>&\"'"},
                {"&#x4E2D;&#20013;&#x1F600;", "\xE4\xB8\xAD\xE4\xB8\xAD\xF0\x9F\x98\x80"}};
    for (const auto& row : rows) {
        const ElementPtr root = LoadAndFind("<r><t>"s + row.content + "</t><t>second</t></r>", "r");
        EXPECT_EQ(ChildTextOf(root, "t"), row.text) << row.content;
        EXPECT_EQ(TextOf(Find("t")), row.text) << row.content;
    }
}

TEST_F(Walk, ReadsAttributes)
{
    const ElementPtr root =
        LoadAndFind("<r name='N' Name='n' empty='' e='&amp;&#x4E2D;\t' l\xC3\xA4nge='5' name='2nd'/>", "r");
    EXPECT_EQ(AttributeOf(root, "name"), "N");
    EXPECT_EQ(AttributeOf(root, "Name"), "n");
    EXPECT_EQ(AttributeOf(root, "nam"), "");
    EXPECT_EQ(AttributeOf(root, "names"), "");
    EXPECT_EQ(AttributeOf(root, "e"), "&\xE4\xB8\xAD ");
    EXPECT_EQ(AttributeOf(root, "l\xC3\xA4nge"), "5");
    CBstr value;
    EXPECT_EQ(root->GetAttribute(nullptr, value.Put()), S_OK);
    EXPECT_EQ(value.Length(), 0U);
}

constexpr char kTree[] = "<r id='0'>"
                         "text<a id='1' k='v'/><b id='2' k='v' k='w'/><!-- a -->"
                         "<a id='3' k='V'/>between<a id='4' k='v'><a id='5' k='v'/><c id='6'/></a>"
                         "<A id='7' k='v'/><a id='8'/><a id='9' k=''/><a id='10' k='v'/>"
                         "</r>";

TEST_F(Walk, ListsChildren)
{
    const ElementPtr root = LoadAndFind(kTree, "r");
    EXPECT_EQ(RestOf(ChildrenOf(root)), "a=1 b=2 a=3 a=4 A=7 a=8 a=9 a=10");
    EXPECT_EQ(RestOf(ChildrenOf(root, "a")), "a=1 a=3 a=4 a=8 a=9 a=10");
    EXPECT_EQ(RestOf(ChildrenOf(root, "")), "");
    EXPECT_EQ(RestOf(ChildrenOf(Find("c"))), "");
    EXPECT_EQ(RestOf(Select(root, "a", "k", "v")), "a=1 a=4 a=10");
    EXPECT_EQ(RestOf(Select(root, "b", "k", "v")), "b=2");
    EXPECT_EQ(RestOf(Select(root, "b", "k", "w")), ""); // of two attributes with one name the first holds
    const ListPtr inner = ChildrenOf(root, "a");
    ElementPtr fourth;
    ASSERT_EQ(inner->Item(2, fourth.Put()), S_OK);
    EXPECT_EQ(RestOf(Select(fourth, "a", "k", "v")), "a=5"); // another element between two of the first
    EXPECT_EQ(RestOf(Select(root, "a", "k", "")), "a=9");    // empty is not absent
    EXPECT_EQ(RestOf(Select(root, "", "k", "v")), "");
    EXPECT_EQ(CountOf(Select(root, "a", "K", "v")), 0);
}

TEST_F(Walk, FindsElementsOfTheDocument)
{
    ASSERT_EQ(Load(kTree), S_OK);
    EXPECT_EQ(RestOf(All("a")), "a=1 a=3 a=4 a=5 a=8 a=9 a=10");
    EXPECT_EQ(RestOf(All("R")), "");
    ASSERT_EQ(Load("<r><\xC2\x80 id='1'/><\xC2\x81 id='2'/></r>"), S_OK); // the first letters beyond ASCII
    EXPECT_EQ(RestOf(All("\xC2\x80")), "\xC2\x80=1");
    ASSERT_EQ(Load(kTree), S_OK);
    EXPECT_EQ(AttributeOf(Find("c"), "id"), "6");
    EXPECT_EQ(AttributeOf(Find("r"), "id"), "0");
    EXPECT_FALSE(Find("none"));
    EXPECT_FALSE(Find(""));
}

TEST_F(Walk, ItemsDoNotMoveNext)
{
    const ListPtr list = Select(LoadAndFind(kTree, "r"), "a", "k", "v");
    ElementPtr element;
    EXPECT_EQ(list->Next(element.Put()), S_OK);
    EXPECT_EQ(CountOf(list), 3);
    EXPECT_EQ(list->Item(2, element.Put()), S_OK);
    EXPECT_EQ(AttributeOf(element, "id"), "10");
    EXPECT_EQ(list->Item(0, element.Put()), S_OK);
    EXPECT_EQ(AttributeOf(element, "id"), "1");
    for (const LONG outside : {-1, 3, 0x7FFFFFFF, -0x7FFFFFFF - 1}) {
        EXPECT_EQ(list->Item(outside, element.Put()), E_INVALIDARG) << outside;
        EXPECT_FALSE(element);
    }
    EXPECT_EQ(RestOf(list), "a=4 a=10");
    EXPECT_EQ(CountOf(list), 3);
}

} // namespace
