// The text file that records both dictionaries after every load.
#include "platform/mfc/CSingleLock.h"
#include "platform/mfc/CStdioFile.h"
#include "platform/win32/Clock.h"
#include "platform/win32/CodePage.h"
#include "symbkds/dump/CDumpLine.h"
#include "symbkds/dump/DumpFileName.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/model/CSymbXMLDDTDef.h"

namespace {

void DumpVariable(const CSymbXMLItemDef& variable, CDumpLine& line)
{
    line.Text("XMLItem ").Text(variable.name).End();
    line.Text(variable.comment).End();
    line.Text(variable.topologicalAddress).End();
    line.Text(variable.typeName).End();
    line.Hex(variable.typeCode).Text(" ").Hex(variable.varType).Text(" (").Hex(variable.block).Text(",");
    line.Hex(variable.offset).Text(")-").Hex(variable.size).Text(" : ").Hex(variable.extractBit).Text(" ");
    line.Hex(variable.accessRights).End();
}

} // namespace

bool CSymbXml::DumpDictionaries()
{
    const CSingleLock guard(&lock, TRUE);
    if (dumpDirectory.IsEmpty())
        return false;
    const CString path = DumpFileName(dumpDirectory, sourcePath, CP_ACP);
    CStdioFile file;
    if (!file.Create(path))
        return false;
    CDumpLine line(file);
    const bool complete = WriteDump(line);
    file.Close();
    if (!complete)
        DeleteFileA(path); // part of a dump is of no use
    return complete;
}

bool CSymbXml::WriteDump(CDumpLine& line) const
{
    DumpHeader(line);
    const MAPOFDDTDEF::Definitions& definitions = types.GetDefinitions();
    line.Text("ListType ").Hex(static_cast<std::uint32_t>(definitions.GetCount())).End();
    for (const auto* pair = definitions.PGetFirstAssoc(); pair; pair = definitions.PGetNextAssoc(pair))
        if (!pair->value->Dump(line))
            return false;
    line.Text("NbItem ").Hex(static_cast<std::uint32_t>(variables.GetCount())).Text(" ").End();
    for (const auto* pair = variables.PGetFirstAssoc(); pair; pair = variables.PGetNextAssoc(pair))
        DumpVariable(*pair->value, line);
    line.Text("QUICK SAVE DICO V1.0 END OF FILE ").Hex(GetTickCount()).Text(" ").End();
    return true;
}

void CSymbXml::DumpHeader(CDumpLine& line) const
{
    line.Text("QUICK SAVE KDV V1.0 ").Text(headerName).Text(" ").LowerHex(GetTickCount()).End();
    line.Text(headerName).Text(" ").End();
    line.Text(headerVersion).Text(" ").End();
    line.Text(description).Text(" ").End();
    for (const std::uint32_t word : projectIdentification)
        line.Text(" ").Hex(word);
    line.End();
    line.Text(contentVersion).Text(" ").End();
    line.Hex(static_cast<std::uint32_t>(fileTime)).Text(" ").End();
}
