#include "symbhost/commands/ItemFindings.h"

void AddTypeFindings(const TypeMeaning& meaning, const std::string& symbol, CFindings& findings)
{
    if (!meaning.arrayProblem.empty())
        findings.Add(kUnusableArray, symbol, "the array " + meaning.arrayProblem + "; nothing below it resolves");
    if (meaning.unknownType)
        findings.Add(
            kUnknownMemberType, symbol,
            (meaning.unknownType->empty() ? "there is no type" : "the type " + *meaning.unknownType + " is not known") +
                std::string("; nothing below it is served"));
}

void AddSizeFinding(const ExportItem& item, const TypeMeaning& meaning, std::uint32_t untold, const std::string& symbol,
                    CFindings& findings)
{
    if (!meaning.elementary || meaning.elements == 0)
        return;
    const std::uint64_t wanted = meaning.elements * meaning.elementarySize;
    const auto told = item.size ? static_cast<std::uint32_t>(*item.size) : untold;
    if (told != wanted)
        findings.Add(kSizeMismatch, symbol,
                     "the export says " + std::to_string(told) + " bytes, " + item.typeName + " has " +
                         std::to_string(wanted));
}
