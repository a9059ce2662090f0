#pragma once

#include "symbhost/exports/CProject.h"
#include "symbhost/exports/CSymbolPath.h"

#include <unordered_set>

struct Explanation
{
    Reason reason = Reason::None; // None: the symbol is served
    std::string text;             // a sentence with the facts
};

// Tells why a host gets a symbol, or not. What fails is found by looking up and listing what is above it.
class CExplainer
{
public:
    explicit CExplainer(const CProject& explained) : project(explained) {}

    Explanation Explain(const std::string& name) { return Explain(project.LookUp(name)); }
    // For a name that was looked up already.
    Explanation Explain(const LookupAnswer& answer);

private:
    // A symbol on the way, of which either a lookup or a listing knows.
    struct Parent
    {
        std::string path;
        std::string typeName; // empty: not known
    };

    struct Members
    {
        std::string upperParent; // empty: nothing was read
        std::unordered_set<std::string> upperNames = {};
        bool isArray = false; // which has no names
        bool isWhole = true;
    };

    Explanation ExplainServed(const LookupAnswer& answer);
    Explanation ExplainPlain(const LookupAnswer& failed, const CProject::Root& root, const CSymbolPath& path) const;
    Explanation ExplainSteps(const CSymbolPath& path, Parent parent) const;
    Explanation ExplainStep(const CSymbolPath& path, std::size_t step, const Parent& parent) const;
    Explanation ExplainElement(const CSymbolPath& path, std::size_t step, const Parent& array,
                               const ListingEntry& first) const;
    Explanation ExplainMember(const CSymbolPath& path, std::size_t step, const Parent& parent,
                              const std::vector<std::string>& members) const;
    Explanation NotInExport(const std::string& root);
    Explanation UnknownType(const std::string& symbol, const std::string& typeName) const;
    std::string FindUnreachable(const CSymbolPath& path, const std::string& name);
    bool HasUnreachableMember(const CSymbolPath& path, std::size_t step, const std::string& name);
    // What is listed below the path up to `step`, which is read once for names that follow each other.
    const Members& MembersOf(const CSymbolPath& path, std::size_t step);
    bool IsHidden(const CSymbolPath& path);
    // The last index of an array whose first element is there.
    std::int64_t LastIndex(const std::string& array, std::int64_t first) const;

    const CProject& project;
    std::vector<std::string> variableNames; // for suggestions; filled when the first is made
    std::size_t suggestions = 0;
    std::vector<Members> membersOnWay; // of the last name, by step
};
