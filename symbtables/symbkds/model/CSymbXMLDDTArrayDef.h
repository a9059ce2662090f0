#pragma once

#include "symbkds/model/ArrayDeclaration.h"
#include "symbkds/model/CSymbXMLDDTDef.h"

#include <memory>

class CSymbXml;

// An array type. A registered one has at most one dimension: more are a chain
// of definitions, the inner ones under generated names.
class CSymbXMLDDTArrayDef : public CSymbXMLDDTDef
{
public:
    CSymbXMLDDTArrayDef();
    // Parses a declaration, which becomes the name too. Beyond ten dimensions the rest is left out.
    explicit CSymbXMLDDTArrayDef(const CString& declarationText);
    CSymbXMLDDTArrayDef(const CString& typeName, const ArrayDeclaration& declaration);

    bool IsArray() const override { return true; }
    bool FindDefinitionAtPath(const CSymbKorvaAnalyser& path, int level, MAPOFDDTDEF* types, CSymbXMLDDTDef*& found,
                              std::uint16_t& block, std::uint32_t& offset, std::uint32_t& size) override;
    bool ResolvePath(MAPOFDDTDEF* types, const CSymbKorvaAnalyser& path, int level, bool located,
                     AddressDescriptor& descriptor, CString& typeName, CString& comment, CString& address) override;
    HRESULT BrowseChildren(const BrowseRequest& request) override;
    void RemoveDFBMembers(MAPOFDDTDEF*) override {}
    // A chain of more than kMaxChain array definitions, cyclic or not, is an array of nothing.
    bool IsArrayOf(std::uint32_t elementCode, MAPOFDDTDEF* types) override;
    // The elementary type code at the end of the chain of arrays; unclassified when it ends in anything else.
    std::uint32_t InnermostElementCode(MAPOFDDTDEF* types);
    void UpdateMemberTypes(MAPOFDDTDEF*) override { SetElementTypeName(CString(elementTypeName)); }
    bool Dump(CDumpLine& line) const override;
    bool IsConsistent(MAPOFDDTDEF*) const override { return false; }
    CString GetDisplayName() const override { return IsAnonymous() ? displayText : name; }
    std::uint32_t GetTypeCode() const override { return typeCode; }
    void SetTypeFromElementCode(std::uint32_t elementCode) override;

    // The number of the element that an index text designates, counted from 0; only the first number of
    // the text counts. False outside the bounds.
    virtual bool ElementIndex(LPCSTR indexText, std::uint32_t& elementNumber) const;
    // Stores the element type's name and classifies the array and its elements by it.
    virtual void SetElementTypeName(const CString& newElementTypeName);
    // Nobody asks these two; they keep their places in the table of virtual functions, which the definitions share.
    virtual bool HasElementVarType() const { return elementVarType != VT_EMPTY; }
    virtual bool IsAddressedByIndex() const { return false; }

    // Whether the name is a generated one.
    bool IsAnonymous() const;
    // Fills `text` with the next generated name of the symbol table and returns it.
    static CString& MakeTempArrayName(CString& text, CSymbXml& symbolTable);
    // The declaration that this part stands for, when `array` is split from its
    // last dimension (step 0) to its first.
    void SetDisplayText(const CSymbXMLDDTArrayDef& array, int step);
    // A copy without the type code, which stays unclassified.
    std::unique_ptr<CSymbXMLDDTArrayDef> CloneArrayDef() const;

    // Bounds of the first dimension, the only one that resolution and listings use.
    const ArrayBounds& FirstBounds() const { return bounds[0]; }

    static constexpr int kMaxChain = 64;

    CString elementTypeName; // upper case once it was classified
    int dimensionCount = 0;
    std::array<ArrayBounds, ArrayDeclaration::kMaxDimensions> bounds;
    std::uint32_t typeCode; // an array code, structured or unclassified
    VARTYPE elementVarType = VT_EMPTY;

private:
    std::uint32_t WalkToInnermostCode(MAPOFDDTDEF* types);

    // The last answer of InnermostElementCode and the revision of the dictionary it holds for.
    static constexpr std::uint64_t kNoRevision = ~std::uint64_t{0};
    std::uint32_t innermostCode = 0;
    std::uint64_t innermostRevision = kNoRevision;
};

// The definition as an array; null when it is null or none.
inline CSymbXMLDDTArrayDef* AsArray(CSymbXMLDDTDef* definition)
{
    return definition && definition->IsArray() ? static_cast<CSymbXMLDDTArrayDef*>(definition) : nullptr;
}
