// Names of types and what the classifiers make of them.
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/model/CSymbXMLDDTArrayDef.h"
#include "symbkds/model/CSymbXMLDDTMember.h"
#include "symbkds/model/CSymbXMLDDTStructDef.h"
#include "symbkds/model/ElementaryTypes.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace {

std::string Codes(std::uint32_t typeCode, unsigned varType)
{
    char text[32];
    std::snprintf(text, sizeof(text), "%X/%X", static_cast<unsigned>(typeCode), varType);
    return text;
}

std::string OfVariable(const CString& typeName, MAPOFDDTDEF& types)
{
    CSymbXMLItemDef variable;
    variable.SetTypeName(typeName, &types);
    EXPECT_EQ(variable.typeName, typeName);
    return Codes(variable.typeCode, variable.varType);
}

std::string OfMember(const CString& typeName, MAPOFDDTDEF& types)
{
    CSymbXMLDDTMember member;
    member.SetTypeName(typeName, &types);
    EXPECT_EQ(member.typeName, typeName);
    return Codes(member.typeCode, member.varType);
}

std::string OfElements(const CString& elementTypeName)
{
    CSymbXMLDDTArrayDef array;
    array.SetElementTypeName(elementTypeName);
    EXPECT_EQ(array.elementTypeName, elementTypeName);
    return Codes(array.typeCode, array.elementVarType);
}

// "no" for a name that is not elementary.
std::string OfValue(CString typeName)
{
    std::uint32_t size = 77;
    std::uint32_t typeCode = 0;
    if (!ClassifyElementaryType(typeName, size, typeCode))
        return size == 77 && typeCode == 2 ? "no" : "no, but something was set";
    return Codes(typeCode, size);
}

struct ElementaryCase
{
    const char* name;
    const char* value;         // code and size
    const char* scalar;        // code and variant type of a variable or member
    const char* arrayVariable; // the same of an array
    const char* arrayMember;
    const char* elements; // code of an array definition, variant type of its elements
};

const ElementaryCase kElementary[] = {
    {"BOOL", "2290148/1", "2290148/B", "2291088/200B", "2291088/200B", "2291088/B"},
    {"EBOOL", "4290148/1", "4290148/B", "4291088/200B", "4291088/200B", "4291088/B"},
    {"BYTE", "1290148/1", "1290148/11", "208/2011", "208/0", "208/11"},
    {"STRING", "120148/10", "120148/11", "208/2011", "208/0", "208/11"},
    {"STRING[32]", "120148/20", "120148/11", "208/2011", "208/0", "208/11"},
    {"WSTRING", "220148/2", "220148/12", "208/2011", "208/0", "22591088/12"},
    {"UINT", "22590148/2", "22590148/12", "22591088/2012", "22591088/2012", "22591088/12"},
    {"UDINT", "12590148/4", "12590148/13", "12591088/2013", "12591088/2013", "12591088/13"},
    {"DINT", "6590148/4", "6590148/3", "6591088/2003", "6591088/2013", "6591088/3"},
    {"DWORD", "690148/4", "690148/13", "691088/2013", "691088/2013", "12591088/13"},
    {"TOD", "4040148/4", "4040148/13", "208/2011", "208/0", "12591088/13"},
    {"TIME", "910148/4", "910148/13", "208/2011", "208/0", "12591088/13"},
    {"DATE", "2040148/4", "2040148/13", "208/2011", "208/0", "12591088/13"},
    {"INT", "A590148/2", "A590148/2", "A591088/2002", "A591088/2012", "A591088/2"},
    {"REAL", "5510148/4", "5510148/4", "5511088/2004", "5511088/2013", "5511088/4"},
    {"DT", "1040148/8", "1040148/5", "208/2011", "208/0", "208/5"},
    {"WORD", "A90148/2", "A90148/12", "A91088/2012", "A91088/2012", "22591088/12"},
};

TEST(ElementaryTypes, HaveTheirCodesInEveryRole)
{
    for (const ElementaryCase& row : kElementary) {
        SCOPED_TRACE(row.name);
        CSymbXml table;
        MAPOFDDTDEF& types = table.GetTypes();
        std::string lower(row.name);
        for (char& c : lower)
            c = static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
        EXPECT_EQ(OfValue(row.name), row.value);
        EXPECT_EQ(OfValue(lower.c_str()), row.value);
        EXPECT_EQ(OfVariable(row.name, types), row.scalar);
        EXPECT_EQ(OfVariable(lower.c_str(), types), "208/2011"); // the only one that minds the case
        EXPECT_EQ(OfMember(lower.c_str(), types), row.scalar);
        EXPECT_EQ(OfElements(lower.c_str()), row.elements);
        EXPECT_TRUE(types.GetDefinitions().IsEmpty());
        // An array written out, one of two dimensions and an array of arrays.
        const CString name = row.name;
        for (const CString& array :
             {"ARRAY[1..3] OF " + name, "ARRAY[0..1,0..1] OF " + name, "ARRAY[0..1] OF ARRAY[0..1] OF " + name}) {
            EXPECT_EQ(OfValue(array), "no");
            EXPECT_EQ(OfVariable(array, types), row.arrayVariable) << array.View();
            EXPECT_EQ(OfMember(array, types), row.arrayMember) << array.View();
            EXPECT_EQ(OfElements(array), "2/0");
        }
    }
}

TEST(ElementaryTypes, AreWholeNames)
{
    const struct
    {
        const char* name;
        const char* value;
    } rows[] = {{"STRING[]", "120148/0"},
                {"STRING[7", "120148/7"},
                {"STRING[+7x]", "120148/7"},
                {"STRING[-5]", "120148/0"}, // a size is never negative
                {"STRING[99999999999]", "120148/7FFFFFFF"},
                {"string[2]", "120148/2"},
                {"STRINGX", "no"},
                {"STRING ", "no"},
                {"WSTRING[4]", "no"},
                {"BOOL ", "no"},
                {" BOOL", "no"},
                {"INT2", "no"},
                {"IN", "no"},
                {"ARRAY", "no"},
                {"", "no"}};
    for (const auto& row : rows)
        EXPECT_EQ(OfValue(row.name), row.value) << row.name;
    CString changed("ArrAy[0..1] of myType");
    std::uint32_t size = 0, code = 0;
    EXPECT_FALSE(ClassifyElementaryType(changed, size, code));
    EXPECT_EQ(changed.View(), "ARRAY[0..1] OF MYTYPE"); // the caller's name turns upper-case either way
}

TEST(DerivedTypes, AreStructuredUnlessArraysOfNineTypes)
{
    CSymbXml table;
    MAPOFDDTDEF& types = table.GetTypes();
    auto structure = std::make_unique<CSymbXMLDDTStructDef>();
    types.AddTypeDef("Motor", std::move(structure));
    types.AddTypeDef("Row", std::make_unique<CSymbXMLDDTArrayDef>(CString("ARRAY[0..1] OF int")));
    const struct
    {
        const char* name;
        const char* variable;
        const char* member;
    } rows[] = {{"Motor", "208/2011", "208/0"},
                {"Nowhere", "208/2011", "208/0"},
                {"", "208/2011", "208/0"},
                {"ROW", "A591088/2002", "A591088/2012"},
                {"array[0..9] of row", "A591088/2002", "A591088/2012"},
                {"ARRAY[0..9] OF Motor", "208/2011", "208/0"},
                {"ARRAY[0..9] OF Nowhere", "208/2011", "208/0"},
                {"ARRAY[0..9]", "208/2011", "208/0"},
                {"ARRAYX", "208/2011", "208/0"},
                {"Bool ", "208/2011", "208/0"}};
    for (const auto& row : rows) {
        EXPECT_EQ(OfVariable(row.name, types), row.variable) << row.name;
        EXPECT_EQ(OfMember(row.name, types), row.member) << row.name;
    }
}

TEST(ArrayDefinition, TakesItsTypeFromAnElementCode)
{
    const struct
    {
        std::uint32_t elementCode;
        const char* codes;
    } rows[] = {{0x02290148, "2291088/200B"},  {0x04290148, "4291088/200B"}, {0x00A90148, "A91088/2012"},
                {0x22590148, "22591088/2012"}, {0x0A590148, "A591088/2002"}, {0x06590148, "6591088/2003"},
                {0x12590148, "12591088/2013"}, {0x00690148, "691088/2013"},  {0x05510148, "5511088/2004"},
                {0x0A591088, "A591088/2002"}, // an array of arrays
                {0x01290148, "208/2011"},      {0x01291088, "208/2011"},     {0x00000208, "208/2011"},
                {0x00000002, "208/2011"},      {0xFFFFFFFF, "208/2011"},     {0, "208/2011"}};
    for (const auto& row : rows) {
        CSymbXMLDDTArrayDef array;
        array.SetTypeFromElementCode(row.elementCode);
        EXPECT_EQ(Codes(array.typeCode, array.elementVarType), row.codes) << row.elementCode;
        EXPECT_EQ(array.GetTypeCode(), array.typeCode);
    }
}

TEST(KindName, IsThatOfTheFirstMaskThatFits)
{
    const struct
    {
        std::uint32_t typeCode;
        const char* kind;
    } rows[] = {{0x0A590148, "EDT"},
                {0x0A591088, "ARRAY DDT"},
                {0x208, "Unknown"},
                {2, "Unknown"},
                {0, "Unknown"},
                {0x888, "ANONYMOUS ARRAY"},
                {0x88, "ARRAY DDT"},
                {0x248, "STRUCT DDT"},
                {0x348, "STRUCT DDT"},
                {0x448, "IODDT"},
                {0x10050, "DFB"},
                {0x20050, "EFB"},
                {0x30050, "DFB"},
                {0x10148, "EDT"},
                {0xFFFFFFFF, "ANONYMOUS ARRAY"}};
    for (const auto& row : rows)
        EXPECT_STREQ(KindName(row.typeCode), row.kind) << row.typeCode;
}

TEST(VariableRecord, KnowsPlainValues)
{
    const struct
    {
        std::uint32_t typeCode;
        bool scalar, bitOrWord;
    } rows[] = {{0x02290148, true, true},  {0x04290148, true, true},  {0x0A590148, true, true},
                {0x22590148, true, true},  {0x00A90148, true, true},  {0x01290148, true, false},
                {0x06590148, true, false}, {0x05510148, true, false}, {0x0A591088, false, false},
                {0x208, false, false},     {2, false, false}};
    for (const auto& row : rows) {
        CSymbXMLItemDef variable;
        EXPECT_EQ(variable.typeCode, 2u);
        EXPECT_EQ(variable.extractBit, 0xFF);
        variable.typeCode = row.typeCode;
        EXPECT_EQ(variable.IsElementaryScalar(), row.scalar) << row.typeCode;
        EXPECT_EQ(variable.IsBitOrWordType(), row.bitOrWord) << row.typeCode;
    }
    CSymbXMLItemDef variable;
    variable.typeName = "%TEMP_ARRAY3";
    EXPECT_EQ(variable.GetDisplayTypeName().View(), "%TEMP_ARRAY3");
    variable.SetDeclaredTypeText("ARRAY[0..9] OF REAL");
    EXPECT_EQ(variable.GetDisplayTypeName().View(), "ARRAY[0..9] OF REAL");
}

} // namespace
