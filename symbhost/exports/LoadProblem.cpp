#include "symbhost/exports/LoadProblem.h"

#include "platform/com/ClassObject.h"
#include "platform/mfc/CBstr.h"
#include "platform/win32/CodePage.h"
#include "symbhost/Text.h"
#include "symbhost/exports/UpperName.h"
#include "symbhost/plugin/Installation.h"

namespace {

std::string TextOf(LoadReport& report, HRESULT (STDMETHODCALLTYPE LoadReport::*get)(BSTR*))
{
    CBstr text;
    (report.*get)(text.Put()); // a failure leaves it empty
    return Narrow({text.Get(), text.Length()}, CP_UTF8);
}

} // namespace

std::string LoadProblem::Text() const
{
    if (SUCCEEDED(result))
        return {};
    if (!hasComponent)
        return NoComponentText(result);
    switch (static_cast<DWORD>(result)) {
    case 0x80070002: // ERROR_FILE_NOT_FOUND
    case 0x80070003: // ERROR_PATH_NOT_FOUND
        return "there is no such file";
    case 0x80070005: // ERROR_ACCESS_DENIED
        return "it may not be read";
    case 0x8007000D: // ERROR_INVALID_DATA
        if (fault.empty())
            return "it is no file, or no well-formed XML";
        return "it is no well-formed XML: line " + std::to_string(line) + ", column " + std::to_string(column) + ": " +
               fault;
    case 0x80070057: // E_INVALIDARG
        return "its name is empty";
    case 0x8007000E: // E_OUTOFMEMORY
        return "memory is short";
    default:
        return "the project-services component fails with " + ResultText(result);
    }
}

bool LoadProblem::IsNotXml() const
{
    // A folder or a pipe is refused with the same result, but not for its text.
    return result == static_cast<HRESULT>(0x8007000DU) && (!isReported || !fault.empty());
}

bool LoadProblem::IsEncodingIgnored() const
{
    const std::string declared = UpperName(declaredEncoding);
    if (declared.empty() || usedEncoding.empty() || declared == usedEncoding)
        return false;
    const bool isAscii = (declared == "US-ASCII" || declared == "ASCII") && usedEncoding == "UTF-8";
    const bool isLatin1 = declared == "LATIN1" && usedEncoding == "ISO-8859-1";
    const bool isByteOrder = (declared == "UTF-16" || declared == "UTF-32") && usedEncoding.starts_with(declared);
    return !isAscii && !isLatin1 && !isByteOrder;
}

LoadProblem LoadByComponent(const std::string& path, CInterfacePtr<ImportSource>& component)
{
    LoadProblem problem;
    problem.result =
        CoCreateInstance(CLSID_KorvaProServices, nullptr, CLSCTX_INPROC_SERVER, IID_ImportSource, component.PutVoid());
    problem.hasComponent = static_cast<bool>(component);
    if (!component)
        return problem;
    problem.result = component->InitImportWithoutDlg(CBstr::FromNarrow(path.c_str(), CP_THREAD_ACP).Get());
    if (SUCCEEDED(problem.result))
        problem.result = component->ImportFile();
    CInterfacePtr<LoadReport> report;
    if (component->QueryInterface(IID_LoadReport, report.PutVoid()) != S_OK || !report)
        return problem;
    problem.isReported = true;
    report->GetPosition(&problem.line, &problem.column); // a failure leaves 0
    problem.fault = TextOf(*report.Get(), &LoadReport::GetFault);
    problem.declaredEncoding = TextOf(*report.Get(), &LoadReport::GetDeclaredEncoding);
    problem.usedEncoding = TextOf(*report.Get(), &LoadReport::GetUsedEncoding);
    return problem;
}

LoadProblem FindLoadProblem(const std::string& path)
{
    CInterfacePtr<ImportSource> component;
    return LoadByComponent(path, component);
}
