#pragma once

#include "symbhost/output/CRecordPrinter.h"

#include <string>

enum class Severity
{
    Error, // something is missing or does not work
    Warning,
    Note
};

struct FindingKind
{
    Severity severity;
    const char* code; // that scripts rely on
};

constexpr FindingKind kNotXml = {Severity::Error, "not-xml"};
constexpr FindingKind kNoVariables = {Severity::Error, "no-variables"};
constexpr FindingKind kUnknownType = {Severity::Error, "unknown-type"};
constexpr FindingKind kNoName = {Severity::Error, "no-name"};
constexpr FindingKind kUnusableArray = {Severity::Error, "unusable-array"};
constexpr FindingKind kSecondDataBlock = {Severity::Warning, "second-data-block"};
constexpr FindingKind kDuplicateVariable = {Severity::Warning, "duplicate-variable"};
constexpr FindingKind kDuplicateType = {Severity::Warning, "duplicate-type"};
constexpr FindingKind kDroppedType = {Severity::Warning, "dropped-type"};
constexpr FindingKind kIgnoredSection = {Severity::Warning, "ignored-section"};
constexpr FindingKind kUnknownMemberType = {Severity::Warning, "unknown-member-type"};
constexpr FindingKind kRemovedBlock = {Severity::Warning, "removed-block"};
constexpr FindingKind kTypeRing = {Severity::Warning, "type-ring"};
constexpr FindingKind kUnreachableName = {Severity::Warning, "unreachable-name"};
constexpr FindingKind kNoPlace = {Severity::Warning, "no-place"};
constexpr FindingKind kOverlap = {Severity::Warning, "overlap"};
constexpr FindingKind kOutsideParent = {Severity::Warning, "outside-parent"};
constexpr FindingKind kSizeMismatch = {Severity::Warning, "size-mismatch"};
constexpr FindingKind kReplacedCharacters = {Severity::Warning, "replaced-characters"};
constexpr FindingKind kEncodingIgnored = {Severity::Warning, "encoding-ignored"};
constexpr FindingKind kCutText = {Severity::Warning, "cut-text"};
constexpr FindingKind kAlias = {Severity::Note, "alias"};
constexpr FindingKind kHiddenMember = {Severity::Note, "hidden-member"};
constexpr FindingKind kNotServed = {Severity::Note, "not-served"};

// Prints findings as they are made.
class CFindings
{
public:
    CFindings(COutput& output, OutputForm form);

    // Texts are UTF-8; `symbol` is empty where the whole export is meant.
    void Add(const FindingKind& kind, const std::string& symbol, const std::string& text);
    void Finish() { printer.Finish(); }
    // Whether there was an error or a warning.
    bool HasTrouble() const { return hasTrouble; }

private:
    struct Finding
    {
        const FindingKind& kind;
        const std::string& symbol;
        const std::string& text;
    };

    static const Field<Finding> kFields[4];

    CRecordPrinter<Finding> printer;
    bool hasTrouble = false;
};
