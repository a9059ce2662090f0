// Type names and array declarations against a symbol table of their own.
//
// Each line of an input is a type name that is looked up and classified;
// NAME=DECLARATION first registers an array type under a name of its own, so
// that types can lead to one another and in circles; ?PATH walks down from the type found last.
#include "FuzzInput.h"

#include "symbkds/browse/BrowseRequest.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/model/CSymbXMLDDTArrayDef.h"
#include "symbkds/model/CSymbXMLDDTMember.h"
#include "symbkds/model/ElementaryTypes.h"
#include "symbkds/model/TypeClassifier.h"
#include "symbkds/resolve/CSymbKorvaAnalyser.h"

namespace {

constexpr int kMaxLines = 200;
constexpr std::uint64_t kPageEntries = 8; // a listing of a whole array could be of a million elements

void ListPage(CSymbXMLDDTDef& definition, CSymbXml& table, BrowseTarget& target)
{
    const ListingOptions options{"", "*", 0, FALSE, TRUE, TRUE, 2, "AC"};
    CListingPage page({}, kPageEntries);
    CStringArray names;
    CWordArray kinds;
    definition.BrowseChildren({options, target, table, page, names, kinds});
    Require(names.GetSize() == kinds.GetSize(), "every entry has a kind", names.GetSize() ? names[0].View() : "");
    Require(static_cast<std::uint64_t>(names.GetSize()) <= kPageEntries, "a page has an end", "");
}

void Walk(CSymbXMLDDTDef& definition, CSymbXml& table, const CString& pathText)
{
    CString text = "ROOT" + pathText;
    CSymbKorvaAnalyser path;
    if (!path.Analyse(text, 0))
        return;
    BrowseTarget target{.definition = nullptr, .root = nullptr, .size = 1U << 20, .prefix = "ROOT"};
    if (definition.FindDefinitionAtPath(path, 1, &table.GetTypes(), target.definition, target.block, target.offset,
                                        target.size))
        ListPage(*target.definition, table, target);
    AddressDescriptor descriptor{};
    descriptor.size = 1U << 20;
    CString typeName, comment, address;
    definition.ResolvePath(&table.GetTypes(), path, 1, true, descriptor, typeName, comment, address);
}

void Classify(CSymbXml& table, const CString& typeName)
{
    CString upperName = typeName;
    std::uint32_t size = 0, typeCode = 0;
    const bool elementary = ClassifyElementaryType(upperName, size, typeCode);
    Require(elementary == (FindElementaryType(typeName.View(), NameCase::Ignored) != nullptr),
            "a name is elementary in any case", typeName.View());
    ClassifyValueType(typeName, table.GetTypes(), kVariableRules);
    ClassifyValueType(typeName, table.GetTypes(), kMemberRules);
    CSymbXMLDDTMember member;
    member.SetTypeName(typeName, &table.GetTypes());
}

// The definition of the name; null when there is none.
CSymbXMLDDTDef* Find(CSymbXml& table, const CString& typeName)
{
    MAPOFDDTDEF& types = table.GetTypes();
    CSymbXMLDDTDef* definition = nullptr;
    if (!types.FindTypeDef(typeName, definition))
        return nullptr;
    int kinds = 0;
    for (const char* element : {"BOOL", "BYTE", "INT", "WORD", "DINT", "REAL", "STRING", "DT"})
        kinds += definition->IsArrayOf(FindElementaryType(element, NameCase::Exact)->typeCode, &types);
    Require(kinds <= 1, "an array has elements of one type", typeName.View());
    Require(types.IsDerivedType(typeName), "a type that was found is found again", typeName.View());
    definition->UpdateMemberTypes(&types);
    definition->SetTypeFromElementCode(definition->GetTypeCode());
    definition->GetDisplayName();
    return definition;
}

void Register(CSymbXml& table, const CString& name, const CString& declaration)
{
    const CSymbXMLDDTArrayDef array(declaration);
    Require(array.dimensionCount <= ArrayDeclaration::kMaxDimensions, "dimensions have a limit", declaration.View());
    auto registered = std::make_unique<CSymbXMLDDTArrayDef>(declaration);
    registered->name = name;
    if (array.dimensionCount < 2)
        table.GetTypes().AddTypeDef(name, std::move(registered));
    else
        table.GetTypes().AddArrayChain(array, &name);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CSymbXml table;
    CFuzzLines lines(data, size);
    CSymbXMLDDTDef* found = nullptr;
    for (int count = 0; count < kMaxLines && !lines.IsAtEnd(); ++count) {
        const CString line(lines.Take().c_str());
        const int sign = line.Find('=');
        if (line.GetAt(0) == '?') {
            if (found)
                Walk(*found, table, line.Mid(1));
            continue;
        }
        if (sign > 0)
            Register(table, line.Left(sign), line.Mid(sign + 1));
        const CString typeName = sign > 0 ? line.Left(sign) : line;
        Classify(table, typeName);
        if (CSymbXMLDDTDef* definition = Find(table, typeName))
            found = definition;
    }
    return 0;
}
