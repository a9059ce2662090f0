#pragma once

#include "symbhost/commands/CFindings.h"
#include "symbhost/exports/TypeMeaning.h"

#include <unordered_map>

// Finds what is wrong with the types of an export.
class CTypeCheck
{
public:
    CTypeCheck(const CExportFile& checked, CFindings& target) : file(checked), findings(target) {}

    // Tells that the export gives `user` so many bytes and a type of this meaning.
    void NoteUse(const TypeMeaning& meaning, const ExportNumber& size, const std::string& user);
    // The last call.
    void Run();

private:
    struct Use
    {
        std::uint64_t bytes;
        std::string user;
    };

    void NoteMembers();
    // For each type a member that leads back to it; empty for most.
    std::vector<std::string> FindRingMembers() const;
    void CheckDeclaration(const ExportType& type);
    void CheckArray(const ExportType& type);
    void CheckSections(const ExportType& type);
    void CheckMember(const ExportType& type, const ExportItem& member);
    void CheckEnd(const ExportType& type, const ExportItem& member, const TypeMeaning& meaning,
                  const std::string& symbol);

    const CExportFile& file;
    CFindings& findings;
    std::unordered_map<const ExportType*, Use> smallestUses;
    std::unordered_map<std::string, const ExportType*> met; // registered types so far by upper-case name
};
