#pragma once

#include "symbhost/exports/CExportFile.h"
#include "symbhost/exports/CListing.h"
#include "symbhost/exports/Row.h"
#include "symbhost/plugin/CLoadedExport.h"

#include <optional>

// What stands in an export and what a host gets of it, side by side.
class CProject
{
public:
    // Reads the export through the component as well; raises CHostError when that fails.
    explicit CProject(CLoadedExport& loadedExport);

    CSymb& Table() const { return loaded.Table(); }
    const CExportFile& File() const { return file; }
    LookupAnswer LookUp(const std::string& name) const { return ::LookUp(loaded.Table(), loaded.Sink(), name); }

    // The type of a symbol whose parent is a structure or function block of type `parentType`, as the
    // export declares it; empty when it does not.
    std::string MemberType(const std::string& parentType, const std::string& member) const;

    struct Root
    {
        ExportItem item;
        bool isListed;
        bool isBranch;
    };
    // The variable of this name in any case, of several the one that a host gets; nothing when the export has none.
    std::optional<Root> FindRoot(const std::string& name) const;
    // What the export says of a variable that is listed under exactly this name.
    std::optional<Root> FindListedRoot(const std::string& name, bool isBranch) const;
    // The name of its type alone; empty where the export has no such variable.
    std::string FindListedType(const std::string& name) const;

private:
    std::optional<std::size_t> FindListedPosition(const std::string& name) const;

    CLoadedExport& loaded;
    CExportFile file;
};
