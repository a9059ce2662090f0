// The text file that records both dictionaries after every load.
#include "platform/mfc/CSingleLock.h"
#include "platform/mfc/CStdioFile.h"
#include "platform/win32/Clock.h"
#include "platform/win32/CodePage.h"
#include "symbkds/dump/CDumpLine.h"
#include "symbkds/dump/DumpFileName.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/model/CSymbXMLDDTDef.h"

#include <span>

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

// False when a definition could not be written.
bool DumpTypes(const MAPOFDDTDEF::Definitions& definitions, CDumpLine& line)
{
    line.Text("ListType ").Hex(static_cast<std::uint32_t>(definitions.GetCount())).End();
    for (const auto* pair = definitions.PGetFirstAssoc(); pair; pair = definitions.PGetNextAssoc(pair))
        if (!pair->value->Dump(line))
            return false;
    return true;
}

void DumpVariables(const CSymbXml::Variables& variables, CDumpLine& line)
{
    line.Text("NbItem ").Hex(static_cast<std::uint32_t>(variables.GetCount())).Text(" ").End();
    for (const auto* pair = variables.PGetFirstAssoc(); pair; pair = variables.PGetNextAssoc(pair))
        DumpVariable(*pair->value, line);
}

// The lines in front of the dictionaries.
struct DumpHeader
{
    const CString& name;
    const CString& version;
    const CString& description;
    std::span<const std::uint32_t> identification;
    const CString& contentVersion;
    std::int32_t fileTime;

    void Write(CDumpLine& line) const
    {
        line.Text("QUICK SAVE KDV V1.0 ").Text(name).Text(" ").LowerHex(GetTickCount()).End();
        for (const CString& text : {name, version, description})
            line.Text(text).Text(" ").End();
        for (const std::uint32_t word : identification)
            line.Text(" ").Hex(word);
        line.End();
        line.Text(contentVersion).Text(" ").End();
        line.Hex(static_cast<std::uint32_t>(fileTime)).Text(" ").End();
    }
};

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
    DumpHeader{headerName, headerVersion, description, projectIdentification, contentVersion, fileTime}.Write(line);
    const bool complete = DumpTypes(types.GetDefinitions(), line);
    if (complete) {
        DumpVariables(variables, line);
        line.Text("QUICK SAVE DICO V1.0 END OF FILE ").Hex(GetTickCount()).Text(" ").End();
    }
    file.Close();
    if (!complete)
        DeleteFileA(path); // part of a dump is of no use
    return complete;
}
