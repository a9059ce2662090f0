#include "symbhost/commands/CFindings.h"

namespace {

constexpr std::string_view SeverityText(Severity severity)
{
    constexpr std::string_view kTexts[] = {"error", "warning", "note"};
    return kTexts[static_cast<std::size_t>(severity)];
}

} // namespace

// clang-format off
constexpr Field<CFindings::Finding> CFindings::kFields[4] = {
    {"severity", "SEVERITY", 0, false, [](const Finding& finding) -> Cell { return SeverityText(finding.kind.severity); }},
    {"code", "CODE", 1, false, [](const Finding& finding) -> Cell { return std::string_view(finding.kind.code); }},
    {"symbol", "SYMBOL", 2, false, [](const Finding& finding) -> Cell { return std::string_view(finding.symbol); }},
    {"text", "TEXT", 3, false, [](const Finding& finding) -> Cell { return std::string_view(finding.text); }},
};
// clang-format on

CFindings::CFindings(COutput& output, OutputForm form) : printer(output, form, kFields) {}

void CFindings::Add(const FindingKind& kind, const std::string& symbol, const std::string& text)
{
    hasTrouble = hasTrouble || kind.severity != Severity::Note;
    printer.Add({kind, symbol, text});
}
