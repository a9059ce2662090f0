// What the imports ask of the component, call by call.
#include "import/ImportFixture.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

void ReplaceAll(std::string& text, std::string_view old, std::string_view with)
{
    for (std::size_t at = 0; (at = text.find(old, at)) != std::string::npos; at += with.size())
        text.replace(at, old.size(), with);
}

// "?Size" for the look-up of a property, "@name" for an attribute.
std::string Shorten(std::string calls)
{
    ReplaceAll(calls, "SelectChildren attribute name ", "?");
    ReplaceAll(calls, "GetAttribute ", "@");
    ReplaceAll(calls, ",", "");
    return calls;
}

struct OrderCase
{
    const char* text;
    const char* from; // the first call to compare
    const char* calls;
};

const OrderCase kOrders[] = {
    {"", "CreateInstance",
     "CreateInstance QueryInterface ImportSource InitImportWithoutDlg plant.kds ImportFile QueryInterface WalkSource "
     "FindElement dataBlock GetElementList DDTSource Count GetElementList FBSource Count GetChildrenByName variables "
     "Count"},
    {"VAR A INT AT %MW1 'c' block 5 @2 size 2 bit 1 customer x access 1 VAR B Nowhere VAR \"\" INT @2",
     "GetChildrenByName variables",
     "GetChildrenByName variables Count "
     "Item 0 @name @typeName @topologicalAddress GetChildText comment ?AreaBlock Next @value ?AreaOffset Next @value "
     "?Size Next @value ?ExtractBit Next @value ?CustomerString Next @value ?RequestAccessRight Next @value "
     "Item 1 @name @typeName @topologicalAddress GetChildText comment ?AreaBlock Next ?AreaOffset Next ?Size Next "
     "?ExtractBit Next ?CustomerString Next ?RequestAccessRight Next "
     "Item 2 @name @typeName @topologicalAddress GetChildText comment"},
    {"TYPE M STRUCT A INT @0 B INT END TYPE T ARRAY[0..1] OF INT NODATABLOCK", "GetElementList DDTSource",
     "GetElementList DDTSource Count Item 0 @DDTName GetChildrenByName array Next GetChildrenByName structure Next "
     "GetChildren Next "
     "@name @typeName GetChildText comment ?AreaBlock Next ?AreaOffset Next @value ?Size Next ?RequestAccessRight "
     "Next ?IsVariableHidden Next Next "
     "@name @typeName GetChildText comment ?AreaBlock Next ?AreaOffset Next ?Size Next ?RequestAccessRight Next "
     "?IsVariableHidden Next Next "
     "Item 1 @DDTName GetChildrenByName array Next GetText GetElementList FBSource Count"},
    {"DFB P IN A INT @0 hidden 1 OUT DFB Q NODATABLOCK", "GetElementList FBSource",
     "GetElementList FBSource Count Item 0 @nameOfFBType GetChildren Next "
     "GetTagName GetChildren Next @name @typeName GetChildText comment ?AreaBlock Next ?AreaOffset Next @value ?Size "
     "Next ?RequestAccessRight Next ?IsVariableHidden Next @value Next Next "
     "GetTagName GetChildren Next Next "
     "Item 1 @nameOfFBType GetChildren Next"},
};

TEST(CallOrder, IsWhatTheComponentExpects)
{
    for (const OrderCase& row : kOrders) {
        CImport import(row.text);
        import.Load();
        std::string calls = import.fake.TakeCalls();
        std::size_t from = calls.find(row.from);
        ASSERT_NE(from, std::string::npos) << row.text;
        EXPECT_EQ(Shorten(calls.substr(from)), row.calls) << row.text;
    }
}

} // namespace
