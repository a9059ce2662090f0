// Findings that variables and members share.
#pragma once

#include "symbhost/commands/CFindings.h"
#include "symbhost/exports/TypeMeaning.h"

// U+FFFD in a text, a text that was cut.
template <class Record>
void AddTextFindings(const Record& record, const std::string& symbol, CFindings& findings)
{
    if (record.hasReplacedText)
        findings.Add(kReplacedCharacters, symbol, "a text holds U+FFFD in place of what could not be read");
    if (record.hasCutText)
        findings.Add(kCutText, symbol, "a text is longer than 1023 bytes; a host gets what fits");
}

// What is wrong with a type that is named in place.
void AddTypeFindings(const TypeMeaning& meaning, const std::string& symbol, CFindings& findings);

// A size that is not what the type needs; `untold`: the bytes when the export tells none.
void AddSizeFinding(const ExportItem& item, const TypeMeaning& meaning, std::uint32_t untold, const std::string& symbol,
                    CFindings& findings);
