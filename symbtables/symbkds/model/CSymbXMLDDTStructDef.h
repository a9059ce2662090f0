#pragma once

#include "symbkds/model/CMemberList.h"
#include "symbkds/model/CSymbXMLDDTDef.h"

// A structure type.
class CSymbXMLDDTStructDef : public CSymbXMLDDTDef
{
public:
    bool IsStruct() const override { return true; }
    bool IsArray() const override { return false; }
    bool FindDefinitionAtPath(const CSymbKorvaAnalyser& path, int level, MAPOFDDTDEF* types, CSymbXMLDDTDef*& found,
                              std::uint16_t& block, std::uint32_t& offset, std::uint32_t& size) override;
    bool ResolvePath(MAPOFDDTDEF* types, const CSymbKorvaAnalyser& path, int level, bool located,
                     AddressDescriptor& descriptor, CString& typeName, CString& comment, CString& address) override;
    HRESULT BrowseChildren(const BrowseRequest& request) override;
    void RemoveDFBMembers(MAPOFDDTDEF*) override {}
    bool IsArrayOf(std::uint32_t, MAPOFDDTDEF*) override { return false; }
    void UpdateMemberTypes(MAPOFDDTDEF* types) override { members.UpdateTypes(types); }
    bool Dump(CDumpLine& line) const override;
    bool IsConsistent(MAPOFDDTDEF*) const override { return false; }

    CMemberList members;
};
