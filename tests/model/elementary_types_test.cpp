// Names of types and what the classifiers make of them.
#include "support/Split.h"
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

std::string OfElementCode(std::uint32_t elementCode)
{
    CSymbXMLDDTArrayDef array;
    array.SetTypeFromElementCode(elementCode);
    EXPECT_EQ(array.GetTypeCode(), array.typeCode);
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
        EXPECT_EQ(OfElementCode(static_cast<std::uint32_t>(std::stoul(row.scalar, nullptr, 16))), row.arrayVariable);
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

struct NameRow
{
    const char* names; // several between bars
    const char* codes;
    const char* memberCodes = "";
};

TEST(ElementaryTypes, AreWholeNames)
{
    const NameRow rows[] = {{"STRING[]|STRING[-5]", "120148/0"}, // a size is never negative
                            {"STRING[7|STRING[+7x]|string[07]", "120148/7"},
                            {"STRING[99999999999]", "120148/7FFFFFFF"},
                            {"STRINGX|STRING |WSTRING[4]|BOOL | BOOL|INT2|IN|ARRAY|", "no"}};
    for (const NameRow& row : rows)
        for (const std::string& name : Split(row.names))
            EXPECT_EQ(OfValue(name.c_str()), row.codes) << name;
    CString changed("ArrAy[0..1] of myType");
    std::uint32_t size = 0, code = 0;
    EXPECT_FALSE(ClassifyElementaryType(changed, size, code));
    EXPECT_EQ(changed.View(), "ARRAY[0..1] OF MYTYPE"); // the caller's name turns upper-case either way
}

TEST(DerivedTypes, AreStructuredUnlessArraysOfNineTypes)
{
    CSymbXml table;
    MAPOFDDTDEF& types = table.GetTypes();
    types.AddTypeDef("Motor", std::make_unique<CSymbXMLDDTStructDef>());
    types.AddTypeDef("Row", std::make_unique<CSymbXMLDDTArrayDef>(CString("ARRAY[0..1] OF int")));
    const NameRow rows[] = {
        {"ROW|array[0..9] of row", "A591088/2002", "A591088/2012"},
        {"Motor|Nowhere||ARRAY[0..9] OF Motor|ARRAY[0..9] OF Nowhere|ARRAY[0..9]|ARRAYX|Bool ", "208/2011", "208/0"}};
    for (const NameRow& row : rows) {
        for (const std::string& name : Split(row.names)) {
            EXPECT_EQ(OfVariable(name.c_str(), types), row.codes) << name;
            EXPECT_EQ(OfMember(name.c_str(), types), row.memberCodes) << name;
        }
    }
    EXPECT_EQ(OfElementCode(0x0A591088), "A591088/2002"); // an array of arrays
    for (const std::uint32_t code : {0x01291088U, 0x208U, 2U, 0xFFFFFFFFU, 0U})
        EXPECT_EQ(OfElementCode(code), "208/2011") << code;
}

TEST(KindName, IsThatOfTheFirstMaskThatFits)
{
    const std::pair<std::vector<std::uint32_t>, const char*> rows[] = {
        {{0x0A590148, 0x10148}, "EDT"}, {{0x0A591088, 0x88}, "ARRAY DDT"},
        {{0x208, 2, 0}, "Unknown"},     {{0x888, 0xFFFFFFFF}, "ANONYMOUS ARRAY"},
        {{0x248, 0x348}, "STRUCT DDT"}, {{0x448}, "IODDT"},
        {{0x10050, 0x30050}, "DFB"},    {{0x20050}, "EFB"}};
    for (const auto& [codes, kind] : rows)
        for (const std::uint32_t code : codes)
            EXPECT_STREQ(KindName(code), kind) << code;
}

TEST(VariableRecord, BeginsUnclassifiedAndShowsItsDeclaration)
{
    CSymbXMLItemDef variable;
    EXPECT_EQ(variable.typeCode, 2u);
    EXPECT_FALSE(variable.IsElementaryScalar());
    variable.typeName = "%TEMP_ARRAY3";
    EXPECT_EQ(variable.GetDisplayTypeName(), "%TEMP_ARRAY3");
    variable.SetDeclaredTypeText("ARRAY[0..9] OF REAL");
    EXPECT_EQ(variable.GetDisplayTypeName(), "ARRAY[0..9] OF REAL");
}

} // namespace
