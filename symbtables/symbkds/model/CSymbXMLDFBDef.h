#pragma once

#include "symbkds/model/CMemberList.h"
#include "symbkds/model/CSymbXMLDDTDef.h"

// A derived function block type. Its members are the parameters and variables
// of all sections in the order of the export.
class CSymbXMLDFBDef : public CSymbXMLDDTDef
{
public:
    bool IsDFB() const override { return true; }
    bool IsArray() const override { return false; }
    bool FindDefinitionAtPath(const CSymbKorvaAnalyser& path, int level, MAPOFDDTDEF* types, CSymbXMLDDTDef*& found,
                              std::uint16_t& block, std::uint32_t& offset, std::uint32_t& size) override;
    bool ResolvePath(MAPOFDDTDEF* types, const CSymbKorvaAnalyser& path, int level, bool located,
                     AddressDescriptor& descriptor, CString& typeName, CString& comment, CString& address) override;
    HRESULT BrowseChildren(const BrowseRequest& request) override;
    void RemoveDFBMembers(MAPOFDDTDEF* types) override;
    bool IsArrayOf(std::uint32_t, MAPOFDDTDEF*) override { return false; }
    void UpdateMemberTypes(MAPOFDDTDEF* types) override { members.UpdateTypes(types); }
    bool Dump(CDumpLine& line) const override;
    bool IsConsistent(MAPOFDDTDEF*) const override { return false; }

    CMemberList members;
};
