// The dictionary of types, the arrays it registers and the definitions' own operations.
#include "support/PrivateField.h"
#include "support/Split.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/model/CSymbXMLDDTArrayDef.h"
#include "symbkds/model/CSymbXMLDDTMember.h"
#include "symbkds/model/CSymbXMLDDTStructDef.h"
#include "symbkds/model/CSymbXMLDFBDef.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

struct MemberIndexField
{
    friend CMap<CString, LPCSTR, int, int> CMemberList::*FieldOf(MemberIndexField);
};
template struct PrivateField<MemberIndexField, &CMemberList::index>;

namespace {

constexpr std::uint32_t kInt = 0x0A590148;
constexpr std::uint32_t kReal = 0x05510148;

// Of an array: "%TEMP_ARRAY0 (ARRAY[0..3] OF REAL) 0..3 of REAL 5511088/4"
std::string ShowDefinition(const CSymbXMLDDTDef& definition)
{
    std::string text(definition.name.View());
    if (!definition.displayText.IsEmpty())
        text += " (" + std::string(definition.displayText.View()) + ")";
    const auto& array = static_cast<const CSymbXMLDDTArrayDef&>(definition);
    for (int i = 0; i < array.dimensionCount; ++i) {
        const ArrayBounds& bounds = array.bounds[static_cast<std::size_t>(i)];
        text += " " + std::to_string(bounds.lower) + ".." + std::to_string(bounds.upper);
    }
    char codes[32];
    std::snprintf(codes, sizeof(codes), " %X/%X", static_cast<unsigned>(array.typeCode),
                  static_cast<unsigned>(array.elementVarType));
    return text + " of " + std::string(array.elementTypeName.View()) + codes;
}

class TypeDictionary : public testing::Test
{
protected:
    CSymbXMLDDTDef* Find(const char* name)
    {
        CSymbXMLDDTDef* definition = &marker;
        const bool found = types.FindTypeDef(name, definition);
        EXPECT_EQ(found, definition != nullptr);
        return definition;
    }

    void AddArray(const std::string& name, const std::string& elementTypeName)
    {
        types.AddTypeDef(name.c_str(),
                         std::make_unique<CSymbXMLDDTArrayDef>(CString(("ARRAY[0..1] OF " + elementTypeName).c_str())));
    }

    bool IsArrayOf(const char* name, std::uint32_t code)
    {
        CSymbXMLDDTDef* definition = Find(name);
        return definition && definition->IsArrayOf(code, &types);
    }

    CSymbXml table;
    MAPOFDDTDEF& types = table.GetTypes();
    CSymbXMLDDTStructDef marker;
};

TEST_F(TypeDictionary, FindsADeclarationAgainUnderItself)
{
    CSymbXMLDDTDef* single = Find("ARRAY[0..9] OF Int");
    EXPECT_EQ(Find("array[0..9] of INT"), single);
    CSymbXMLDDTDef* outermost = Find("ARRAY[0..1,0..2] OF INT");
    CSymbXMLDDTDef* copy = Find("array[0..1,0..2] of int");
    EXPECT_EQ(Find("%temp_array1"), outermost);
    EXPECT_NE(copy, outermost);
    EXPECT_EQ(ShowDefinition(*copy), ShowDefinition(*outermost));
    EXPECT_EQ(Find("ARRAY[0..1,0..2] OF INT"), copy);
    EXPECT_EQ(table.DrawAnonymousArrayNumber(), 2u);
    EXPECT_EQ(copy->GetDisplayName().View(), "ARRAY[0..1,0..2] OF INT");
    EXPECT_TRUE(types.IsDerivedType("ARRAY[0..5] OF INT"));
    EXPECT_FALSE(types.IsDerivedType("INT"));
    EXPECT_FALSE(types.IsDFBType("ARRAY[0..5] OF INT"));
}

TEST_F(TypeDictionary, KeepsADisplacedDefinitionAlive)
{
    auto first = std::make_unique<CSymbXMLDFBDef>();
    first->members.Add(std::make_unique<CSymbXMLDDTMember>());
    CSymbXMLDFBDef* displaced = first.get();
    types.AddTypeDef("Recipe", std::move(first));
    EXPECT_TRUE(types.IsDFBType("RECIPE"));
    AddArray("rECIPE", "INT");
    EXPECT_EQ(ShowDefinition(*Find("Recipe")), "ARRAY[0..1] OF INT 0..1 of INT A591088/2");
    EXPECT_EQ(displaced->members.GetCount(), 1);
    types.RemoveAllTypeDefs();
    EXPECT_EQ(Find("Recipe"), nullptr);
}

TEST_F(TypeDictionary, AndOtherMapsHaveTheirNumbersOfBuckets)
{
    EXPECT_EQ(types.GetDefinitions().GetHashTableSize(), 769u);
    EXPECT_EQ(table.GetVariables().GetHashTableSize(), 25309u);
    CMemberList members;
    for (int i = 0; i < 200; ++i)
        members.Add(std::make_unique<CSymbXMLDDTMember>());
    members.Remove(std::vector<bool>(200, true)); // makes the index anew
    EXPECT_EQ((members.*FieldOf(MemberIndexField())).GetHashTableSize(), 181u);
    EXPECT_EQ((marker.members.*FieldOf(MemberIndexField())).GetHashTableSize(), 181u);
}

TEST_F(TypeDictionary, AnswersWhatAnArrayIsAnArrayOf)
{
    for (const char* pair :
         {"Ints int", "Rows Ints", "Unknown Nowhere", "Motors Motor", "Self SELF", "Ping Pong", "Pong Ping"})
        AddArray(Split(pair, " ")[0], Split(pair, " ")[1]);
    types.AddTypeDef("Motor", std::make_unique<CSymbXMLDDTStructDef>());
    types.AddTypeDef("Block", std::make_unique<CSymbXMLDFBDef>());
    for (const char* name : {"Ints", "Rows", "ARRAY[0..1,0..2] OF Rows", "ARRAY[0..1] OF ARRAY[0..1] OF INT"}) {
        EXPECT_TRUE(IsArrayOf(name, kInt)) << name;
        EXPECT_FALSE(IsArrayOf(name, kReal)) << name;
        EXPECT_FALSE(IsArrayOf(name, 2)) << name;
    }
    for (const char* name : {"Unknown", "Motors", "Self", "Ping", "Motor", "Block"})
        EXPECT_FALSE(IsArrayOf(name, kInt)) << name;
    AddArray("Nowhere", "INT"); // what was found out before no longer holds
    EXPECT_TRUE(IsArrayOf("Unknown", kInt));

    for (int i = 0; i < 70; ++i)
        AddArray("T" + std::to_string(i), i == 69 ? "INT" : "T" + std::to_string(i + 1));
    EXPECT_TRUE(IsArrayOf("T6", kInt)); // 64 definitions
    EXPECT_FALSE(IsArrayOf("T5", kInt));
    CSymbXMLItemDef variable;
    variable.SetTypeName("T6", &types);
    EXPECT_EQ(variable.typeCode, 0x0A591088u);
    variable.SetTypeName("T5", &types);
    EXPECT_EQ(variable.typeCode, 0x208u);
}

TEST_F(TypeDictionary, ClassifiesMembersAnew)
{
    CSymbXMLDDTStructDef structure;
    CSymbXMLDFBDef block;
    for (CMemberList* members : {&structure.members, &block.members}) {
        members->Add(std::make_unique<CSymbXMLDDTMember>());
        members->GetAt(0)->typeName = "Late";
    }
    const std::pair<std::uint32_t, int> expected[] = {{0x208, 0}, {0x0A591088, 0x2012}};
    for (const auto& [typeCode, varType] : expected) {
        structure.UpdateMemberTypes(&types);
        block.UpdateMemberTypes(&types);
        for (const CMemberList* members : {&structure.members, &block.members}) {
            EXPECT_EQ(members->GetAt(0)->typeCode, typeCode);
            EXPECT_EQ(members->GetAt(0)->varType, varType);
        }
        AddArray("Late", "INT");
    }
    CSymbXMLDDTArrayDef array(CString("ARRAY[0..1] OF Word"));
    array.typeCode = 2;
    array.UpdateMemberTypes(&types);
    EXPECT_EQ(ShowDefinition(array), "ARRAY[0..1] OF Word 0..1 of Word 22591088/12");
    EXPECT_TRUE(array.HasElementVarType());
    EXPECT_EQ(structure.GetTypeCode(), 0x208u);
}

} // namespace
