// The blocks that type definitions write into the dump.
#include "symbkds/dump/CDumpLine.h"
#include "symbkds/model/CSymbXMLDDTArrayDef.h"
#include "symbkds/model/CSymbXMLDDTMember.h"
#include "symbkds/model/CSymbXMLDDTStructDef.h"
#include "symbkds/model/CSymbXMLDFBDef.h"

namespace {

void DumpMember(const CSymbXMLDDTMember& member, CDumpLine& line)
{
    line.Text("DDT/DFB-Member ").Text(member.name).Text(" ").End();
    line.Text(" ").Text(member.comment).Text(" ").End();
    line.Text(" ").Text(member.typeName).Text(" ").End();
    line.Text(" ").Hex(member.varType).Text(" ").Hex(member.typeCode).Text(" (").Hex(member.block).Text(",");
    line.Hex(member.offset).Text(")-").Hex(member.size).Text(" : ").Hex(member.accessRights).Text(" ");
    line.Hex(member.indirectionKind).Text(" ").Hex(member.hidden).Text(" ").End();
}

void DumpHead(LPCSTR kind, const CSymbXMLDDTDef& definition, CDumpLine& line)
{
    line.Text(kind).Text(" ").End();
    line.Text(kind).Text(" ").Text(definition.name).Text(" ").End();
    line.Hex(definition.reservedNumber).Text(" ").End();
}

void DumpMembers(const CMemberList& members, CDumpLine& line)
{
    line.Text("NbMember ").Hex(static_cast<std::uint32_t>(members.GetCount())).Text(" ").End();
    for (int position = 0; position < members.GetCount(); ++position)
        DumpMember(*members.GetAt(position), line);
}

} // namespace

bool CSymbXMLDDTStructDef::Dump(CDumpLine& line) const
{
    DumpHead("DDTStruct", *this, line);
    DumpMembers(members, line);
    return true;
}

bool CSymbXMLDFBDef::Dump(CDumpLine& line) const
{
    DumpHead("DFBDef", *this, line);
    DumpMembers(members, line);
    return true;
}

bool CSymbXMLDDTArrayDef::Dump(CDumpLine& line) const
{
    DumpHead("DDTArray", *this, line);
    line.Text(" ").Text(elementTypeName).Text(" ").End();
    line.Text(" ").Hex(elementVarType).Text(" ").End();
    CString count;
    count.Format(" %d ", dimensionCount);
    line.Text(count).End();
    for (int dimension = 0; dimension < dimensionCount; ++dimension) {
        const ArrayBounds& pair = bounds[static_cast<std::size_t>(dimension)];
        line.Text(" ").Hex(static_cast<std::uint32_t>(pair.lower)).Text(" ");
        line.Hex(static_cast<std::uint32_t>(pair.upper)).Text(" ").End();
    }
    return true;
}
