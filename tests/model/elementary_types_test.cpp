// Names of types and what the classifiers make of them.
#include "support/GeneratedProject.h"
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

// What values, variables, members and arrays of them get is the plain model's to check.
TEST(ElementaryTypes, OfArraysAreFoundByTheirCode)
{
    for (const Elementary& row : kElementary) {
        CSymbXml table;
        EXPECT_EQ(OfElementCode(row.code << 16 | 0x0148),
                  Codes(row.ofVariables == 0x2011 ? 0x208 : row.code << 16 | 0x1088, row.ofVariables));
        EXPECT_EQ(OfVariable(InCase(false, row.name).c_str(), table.GetTypes()), "208/2011"); // mind the case
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

} // namespace
