#include "symbhost/commands/CheckCommand.h"

#include "symbhost/Failure.h"
#include "symbhost/commands/CVariableCheck.h"

namespace {

void AddDocumentFindings(const CExportFile& file, CFindings& findings)
{
    if (file.CountVariables() == 0)
        findings.Add(kNoVariables, "",
                     file.CountDataBlocks() == 0 ? "there is no element dataBlock"
                                                 : "the first element dataBlock holds no variables");
    if (file.CountDataBlocks() > 1)
        findings.Add(kSecondDataBlock, "",
                     std::to_string(file.CountDataBlocks()) + " elements dataBlock; a host gets those of the first");
    const LoadProblem& report = file.Report();
    if (report.IsEncodingIgnored())
        findings.Add(kEncodingIgnored, "",
                     "the declared encoding " + report.declaredEncoding + " is not used; the file was read as " +
                         report.usedEncoding);
}

void CheckLoaded(CLoadedExport& loaded, CFindings& findings)
{
    const CProject project(loaded);
    AddDocumentFindings(project.File(), findings);
    CTypeCheck types(project.File(), findings);
    CVariableCheck variables(project, findings);
    variables.NoteUses(types);
    types.Run();
    variables.Run();
}

} // namespace

int CheckCommand(const LoadOptions& load, OutputForm form, COutput& output)
{
    const CComApartment apartment;
    CFindings findings(output, form);
    try {
        CLoadedExport loaded(load);
        CheckLoaded(loaded, findings);
    } catch (const CHostError&) {
        const LoadProblem problem = FindLoadProblem(load.exportPath);
        if (!problem.IsNotXml())
            throw;
        findings.Add(kNotXml, "", problem.Text());
    }
    findings.Finish();
    return findings.HasTrouble() ? kIncomplete : kDone;
}
