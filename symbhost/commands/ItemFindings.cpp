#include "symbhost/commands/ItemFindings.h"

void AddTypeFindings(const TypeMeaning& meaning, const std::string& symbol, CFindings& findings)
{
    if (!meaning.arrayProblem.empty())
        findings.Add(kUnusableArray, symbol, "the array " + meaning.arrayProblem + "; nothing below it resolves");
    if (!meaning.unknownType.empty())
        findings.Add(kUnknownMemberType, symbol,
                     "the type " + meaning.unknownType + " is not known; nothing below it is served");
}

void AddSizeFinding(const ExportItem& item, const TypeMeaning& meaning, bool isAbsentRight, const std::string& symbol,
                    CFindings& findings)
{
    if (!meaning.elementary || !meaning.arrayProblem.empty() || (isAbsentRight && !item.size))
        return;
    const std::uint64_t wanted = meaning.elements * meaning.elementarySize;
    const auto told = static_cast<std::uint32_t>(item.size.value_or(0));
    if (told != wanted)
        findings.Add(kSizeMismatch, symbol,
                     "the export says " + std::to_string(told) + " bytes, " + item.typeName + " has " +
                         std::to_string(wanted));
}
