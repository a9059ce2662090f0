// The dictionary of types, the arrays it registers and the definitions' own operations.
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/model/CSymbXMLDDTArrayDef.h"
#include "symbkds/model/CSymbXMLDDTMember.h"
#include "symbkds/model/CSymbXMLDDTStructDef.h"
#include "symbkds/model/CSymbXMLDFBDef.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace {

constexpr std::uint32_t kInt = 0x0A590148;
constexpr std::uint32_t kReal = 0x05510148;

// "%TEMP_ARRAY0 (ARRAY[0..3] OF REAL) 0..3 of REAL 5511088/4"
std::string ShowDefinition(const CSymbXMLDDTDef& definition)
{
    std::string text(definition.name.View());
    if (!definition.displayText.IsEmpty())
        text += " (" + std::string(definition.displayText.View()) + ")";
    if (!definition.IsArray())
        return text + (definition.IsDFB() ? " block" : " structure");
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

std::string ShowDictionary(const MAPOFDDTDEF& types)
{
    std::string text;
    for (const auto* pair = types.GetDefinitions().PGetFirstAssoc(); pair;
         pair = types.GetDefinitions().PGetNextAssoc(pair))
        text += std::string(pair->key.View()) + ": " + ShowDefinition(*pair->value) + "\n";
    return text;
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

TEST_F(TypeDictionary, RegistersTheDeclarationsItIsAskedFor)
{
    const struct
    {
        const char* name;
        const char* found;      // "" when nothing is
        const char* dictionary; // afterwards
    } rows[] = {
        {"Nowhere", "", ""},
        {"", "", ""},
        {"XARRAY[0..1] OF INT", "", ""},
        {"ARRA", "", ""},
        {"Array[-5..5] Of Bool", "Array[-5..5] Of Bool -5..5 of Bool 2291088/B",
         "ARRAY[-5..5] OF BOOL: Array[-5..5] Of Bool -5..5 of Bool 2291088/B\n"},
        {"ARRAYX", "ARRAYX of  2/0", "ARRAYX: ARRAYX of  2/0\n"},
        {"array", "array of  2/0", "ARRAY: array of  2/0\n"},
        {"ARRAY[0..3] OF ARRAY[0..1] OF INT", "ARRAY[0..3] OF ARRAY[0..1] OF INT 0..3 of ARRAY[0..1] OF INT 2/0",
         "ARRAY[0..3] OF ARRAY[0..1] OF INT: ARRAY[0..3] OF ARRAY[0..1] OF INT 0..3 of ARRAY[0..1] OF INT 2/0\n"},
        {"ARRAY[1..2,0..3] OF Real", "%TEMP_ARRAY1 (ARRAY[1..2,0..3] OF Real) 1..2 of %TEMP_ARRAY0 2/0",
         "%TEMP_ARRAY0: %TEMP_ARRAY0 (ARRAY[0..3] OF Real) 0..3 of Real 5511088/4\n"
         "%TEMP_ARRAY1: %TEMP_ARRAY1 (ARRAY[1..2,0..3] OF Real) 1..2 of %TEMP_ARRAY0 2/0\n"
         "ARRAY[1..2,0..3] OF REAL: %TEMP_ARRAY1 (ARRAY[1..2,0..3] OF Real) 1..2 of %TEMP_ARRAY0 2/0\n"},
        {"ARRAY[-1..2, 3..4, 5..6] OF T OF U",
         "%TEMP_ARRAY2 (ARRAY[-1..2,3..4,5..6] OF T OF U) -1..2 of %TEMP_ARRAY1 2/0",
         "%TEMP_ARRAY0: %TEMP_ARRAY0 (ARRAY[5..6] OF T OF U) 5..6 of T OF U 2/0\n"
         "%TEMP_ARRAY1: %TEMP_ARRAY1 (ARRAY[3..4,5..6] OF T OF U) 3..4 of %TEMP_ARRAY0 2/0\n"
         "%TEMP_ARRAY2: %TEMP_ARRAY2 (ARRAY[-1..2,3..4,5..6] OF T OF U) -1..2 of %TEMP_ARRAY1 2/0\n"
         "ARRAY[-1..2, 3..4, 5..6] OF T OF U: "
         "%TEMP_ARRAY2 (ARRAY[-1..2,3..4,5..6] OF T OF U) -1..2 of %TEMP_ARRAY1 2/0\n"},
        {"ARRAY[0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1,0..1] OF INT", "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        CSymbXml fresh;
        CSymbXMLDDTDef* definition = &marker;
        const bool found = fresh.GetTypes().FindTypeDef(row.name, definition);
        EXPECT_EQ(found, *row.found != 0);
        EXPECT_EQ(definition ? ShowDefinition(*definition) : "", row.found);
        EXPECT_EQ(ShowDictionary(fresh.GetTypes()), row.dictionary);
    }
}

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
    EXPECT_EQ(single->GetDisplayName().View(), "ARRAY[0..9] OF Int");
    EXPECT_TRUE(types.IsDerivedType("ARRAY[0..5] OF INT"));
    EXPECT_FALSE(types.IsDerivedType("INT"));
    EXPECT_FALSE(types.IsDFBType("ARRAY[0..5] OF INT"));
}

TEST_F(TypeDictionary, CopiesAnArrayWithoutItsTypeCode)
{
    CSymbXMLDDTArrayDef array(CString("ARRAY[1..2,3..4] OF INT"));
    array.reservedNumber = 7;
    array.displayText = "shown";
    EXPECT_EQ(ShowDefinition(array), "ARRAY[1..2,3..4] OF INT (shown) 1..2 3..4 of INT A591088/2");
    const std::unique_ptr<CSymbXMLDDTArrayDef> clone = array.CloneArrayDef();
    EXPECT_EQ(ShowDefinition(*clone), "ARRAY[1..2,3..4] OF INT (shown) 1..2 3..4 of INT 2/2");
    EXPECT_EQ(clone->reservedNumber, 7u);
    EXPECT_FALSE(clone->IsAnonymous());
    EXPECT_EQ(clone->GetDisplayName().View(), "ARRAY[1..2,3..4] OF INT");
    clone->name = "x%TEMP_ARRAY";
    EXPECT_FALSE(clone->IsAnonymous());
    clone->name = "%TEMP_ARRAY";
    EXPECT_EQ(clone->GetDisplayName().View(), "shown");
}

TEST_F(TypeDictionary, KeepsADisplacedDefinitionAlive)
{
    auto first = std::make_unique<CSymbXMLDFBDef>();
    first->name = "Recipe";
    first->members.Add(std::make_unique<CSymbXMLDDTMember>());
    CSymbXMLDFBDef* displaced = first.get();
    types.AddTypeDef("Recipe", std::move(first));
    EXPECT_TRUE(types.IsDFBType("RECIPE"));
    AddArray("before", "INT");
    auto second = std::make_unique<CSymbXMLDDTStructDef>();
    second->name = "RECIPE";
    types.AddTypeDef("RECIPE", std::move(second));
    AddArray("rECIPE", "INT");

    EXPECT_EQ(ShowDictionary(types), "RECIPE: ARRAY[0..1] OF INT 0..1 of INT A591088/2\n"
                                     "BEFORE: ARRAY[0..1] OF INT 0..1 of INT A591088/2\n");
    EXPECT_EQ(displaced->name.View(), "Recipe");
    EXPECT_EQ(displaced->members.GetCount(), 1);
    types.RemoveAllTypeDefs();
    EXPECT_EQ(Find("Recipe"), nullptr);
    EXPECT_EQ(types.GetDefinitions().GetCount(), 0);
}

TEST_F(TypeDictionary, AnswersWhatAnArrayIsAnArrayOf)
{
    AddArray("Ints", "int");
    AddArray("Rows", "Ints");
    AddArray("Unknown", "Nowhere");
    AddArray("Motors", "Motor");
    AddArray("Self", "SELF");
    AddArray("Ping", "Pong");
    AddArray("Pong", "Ping");
    types.AddTypeDef("Motor", std::make_unique<CSymbXMLDDTStructDef>());
    types.AddTypeDef("Block", std::make_unique<CSymbXMLDFBDef>());
    for (const char* name : {"Ints", "Rows", "ARRAY[0..1,0..2] OF Rows", "ARRAY[0..1] OF ARRAY[0..1] OF INT"}) {
        EXPECT_TRUE(IsArrayOf(name, kInt)) << name;
        EXPECT_FALSE(IsArrayOf(name, kReal)) << name;
        EXPECT_FALSE(IsArrayOf(name, 2)) << name;
    }
    for (const char* name : {"Unknown", "Motors", "Self", "Ping", "Motor", "Block"})
        EXPECT_FALSE(IsArrayOf(name, kInt)) << name;
}

TEST_F(TypeDictionary, FollowsAChainOfArraysOnlySoFar)
{
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

std::unique_ptr<CSymbXMLDDTMember> Member(const char* name, const char* typeName)
{
    auto member = std::make_unique<CSymbXMLDDTMember>();
    member->name = name;
    member->typeName = typeName;
    return member;
}

TEST_F(TypeDictionary, ClassifiesMembersAnew)
{
    CSymbXMLDDTStructDef structure;
    CSymbXMLDFBDef block;
    for (CMemberList* members : {&structure.members, &block.members}) {
        members->Add(Member("A", "Int"));
        members->Add(Member("B", "Late"));
        EXPECT_EQ(members->GetAt(0)->typeCode, 2u);
    }
    structure.UpdateMemberTypes(&types);
    EXPECT_EQ(structure.members.GetAt(0)->typeCode, kInt);
    EXPECT_EQ(structure.members.GetAt(0)->typeName.View(), "Int");
    EXPECT_EQ(structure.members.GetAt(1)->typeCode, 0x208u);
    AddArray("Late", "INT");
    structure.UpdateMemberTypes(&types);
    block.UpdateMemberTypes(&types);
    for (const CMemberList* members : {&structure.members, &block.members}) {
        EXPECT_EQ(members->GetAt(1)->typeCode, 0x0A591088u);
        EXPECT_EQ(members->GetAt(1)->varType, 0x2012);
    }

    CSymbXMLDDTArrayDef array(CString("ARRAY[0..1] OF Word"));
    array.typeCode = 2;
    array.UpdateMemberTypes(&types);
    EXPECT_EQ(ShowDefinition(array), "ARRAY[0..1] OF Word 0..1 of Word 22591088/12");
    EXPECT_TRUE(array.HasElementVarType());
    array.SetElementTypeName("Motor");
    EXPECT_FALSE(array.HasElementVarType());
    EXPECT_EQ(array.GetTypeCode(), 2u);
    EXPECT_EQ(structure.GetTypeCode(), 0x208u);
    EXPECT_EQ(block.GetTypeCode(), 0x208u);
}

// The members' names, and behind each the position that its name leads to, if that is another.
std::string ShowMembers(const CMemberList& members)
{
    std::string text;
    for (int i = 0; i < members.GetCount(); ++i) {
        const CSymbXMLDDTMember* member = members.GetAt(i);
        text += (i > 0 ? " " : "") + std::string(member->name.View());
        const CSymbXMLDDTMember* found = members.Find(member->name);
        for (int other = 0; other < members.GetCount(); ++other)
            if (found == members.GetAt(other) && other != i)
                text += "=" + std::to_string(other);
        text += found ? "" : "=nothing";
    }
    return text;
}

TEST_F(TypeDictionary, TakesBlocksOutOfABlock)
{
    types.AddTypeDef("F", std::make_unique<CSymbXMLDFBDef>());
    types.AddTypeDef("S", std::make_unique<CSymbXMLDDTStructDef>());
    const struct
    {
        std::vector<const char*> members; // names and types
        const char* left;
    } rows[] = {{{}, ""},
                {{"A", "F"}, "A"},
                {{"A", "F", "B", "S", "C", "f", "D", "INT"}, "A B D"},
                {{"A", "F", "B", "F", "C", "F"}, "A"},
                {{"A", "INT", "b", "INT", "B", "F", "C", "INT"}, "A b=nothing C"}, // its name led to the block
                {{"A", "INT", "b", "F", "B", "INT", "C", "INT"}, "A B C"},
                {{"A", "INT", "a", "INT", "B", "F", "A", "REAL", "C", "S"}, "A=2 a=2 A C"},
                {{"A", "INT", "B", "ARRAY[0..1] OF F", "C", "Nowhere", "D", ""}, "A B C D"}};
    for (const auto& row : rows) {
        CSymbXMLDFBDef block;
        for (std::size_t i = 0; i < row.members.size(); i += 2)
            block.members.Add(Member(row.members[i], row.members[i + 1]));
        block.RemoveDFBMembers(&types);
        EXPECT_EQ(ShowMembers(block.members), row.left);
        EXPECT_EQ(block.members.Find("Z"), nullptr);
    }
}

} // namespace
