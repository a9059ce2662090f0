#pragma once

#include "korvaproservices/KorvaProServices.h"
#include "platform/mfc/CBstr.h"
#include "platform/mfc/CInterfacePtr.h"
#include "symbhost/exports/ExportRecords.h"
#include "symbhost/exports/LoadProblem.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

// An export as it stands, read through the project-services component.
//
// Variables are read when they are asked for, each time anew, so that the file's
// content is not kept a second time beside the component's. COM must be
// initialised on the thread, the only one that uses the object.
class CExportFile
{
public:
    // Raises CHostError when the file (a path in the ANSI code page) cannot be read.
    explicit CExportFile(const std::string& path);
    CExportFile(const CExportFile&) = delete;
    CExportFile& operator=(const CExportFile&) = delete;
    ~CExportFile();

    // What the component tells about the file, which could be read.
    const LoadProblem& Report() const { return loadReport; }
    // The elements called dataBlock; the variables are those of the first.
    std::size_t CountDataBlocks() const;
    std::size_t CountVariables() const { return variableCount; }
    // By position in the export, duplicates and variables without a name or a type included.
    ExportItem ReadVariable(std::size_t position) const;
    std::string ReadVariableName(std::size_t position) const;
    std::string ReadVariableType(std::size_t position) const;
    // The positions of the variables of this name in any case, from the last to the first.
    std::vector<std::size_t> FindVariables(const std::string& name) const;

    // Structures and arrays, then function blocks; each group in the order of the export. Read once, then kept.
    const std::vector<ExportType>& Types() const;
    // The type of this name in any case, of several the last that a host gets; null when none is declared.
    const ExportType* FindType(const std::string& name) const;

private:
    struct NamePosition
    {
        std::size_t hash; // of the upper-case name
        std::uint32_t position;
    };

    CInterfacePtr<WalkElement> VariableAt(std::size_t position) const;
    void ReadTypes(const CBstr& tag, ExportType::Kind kind) const;

    LoadProblem loadReport;
    CInterfacePtr<WalkSource> source;
    CInterfacePtr<WalkList> variables;
    std::size_t variableCount = 0;
    mutable std::vector<NamePosition> names; // by hash, then position; filled at the first search
    mutable std::vector<ExportType> types;
    mutable std::unordered_map<std::string, std::size_t> typesByName; // upper-case names
    mutable bool hasTypes = false;
};
