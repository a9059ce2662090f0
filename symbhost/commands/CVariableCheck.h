#pragma once

#include "symbhost/commands/CFindings.h"
#include "symbhost/commands/CTypeCheck.h"
#include "symbhost/exports/CPlaceFinder.h"
#include "symbhost/exports/CProject.h"

#include <array>
#include <unordered_map>

// Finds what is wrong with the variables of an export, beside what a host gets of them.
class CVariableCheck
{
public:
    CVariableCheck(const CProject& checked, CFindings& target);

    // Tells which types the variables have; after Collect and before Run.
    void NoteUses(CTypeCheck& types);
    void Run();

private:
    static constexpr std::uint32_t kNone = UINT32_MAX;

    // What a host gets of the variables of one name.
    struct Listed
    {
        RowFacts facts;
        std::uint32_t holder = kNone;   // position of the variable that it gets
        std::uint32_t previous = kNone; // of the last one of this name that was met
    };

    void Collect();
    std::vector<Place> Places() const;
    Listed* Find(const std::string& name);
    void Check(std::uint32_t position, CPlaceFinder& places);
    void AddDropped(const ExportItem& item, const TypeMeaning& meaning);
    void AddDuplicate(const ExportItem& item, std::uint32_t position, Listed& listed);
    void CheckHolder(const ExportItem& item, const TypeMeaning& meaning, const Listed& listed);
    void CheckOverlap(const ExportItem& item, const Place& place, const CPlaceFinder& places);
    void CheckAlias(const ExportItem& item, const Place& place, const CPlaceFinder& places);
    void CountNotServed(const ExportItem& item, const TypeMeaning& meaning, const Listed& listed);
    void AddNotServed();

    const CProject& project;
    const CExportFile& file;
    CFindings& findings;
    std::unordered_map<std::string, Listed> listedByName;            // upper case
    std::vector<std::pair<std::string_view, std::size_t>> notServed; // by the type's name
};
