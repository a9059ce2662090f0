// What a symbol table answers about a generated project, by code too simple to be wrong.
#pragma once

#include "support/GeneratedProject.h"
#include "support/HostView.h"

#include <string>
#include <vector>

// A memory area as the host's documents describe it.
struct ModelArea
{
    std::uint32_t count = 0, firstIndex = 0, block = 0, base = 0;
};

// What a path leads to.
struct Place
{
    std::string path, prefix;
    const Type* type = nullptr; // of the value; null when the path leads nowhere
    const Item* root = nullptr;
    int steps = 1;
    const Item* member = nullptr;                  // that the last step names; null for an element
    bool parameter = false;                        // it is one of a function block
    std::vector<const Item*> members = {};         // that the path goes through
    bool inMemberArray = false;                    // one of them, not the last step, is an array
    std::uint32_t block = 0, offset = 0, size = 0; // for listings, which add blocks
    std::uint32_t at = 0, bytes = 0;               // for lookups: offset in the root's block, size
    bool located = true;                           // else `relative` and its size tell the rest
    std::uint32_t relative = 0, relativeBytes = 0;
    bool byReference = false;

    bool IsListed() const { return type && type->IsDerived(); }
};

struct Entry
{
    std::string text, id; // the identifier without that of the parent
    bool branch;
};
using Listing = std::vector<Entry>;

class CPlainModel
{
public:
    explicit CPlainModel(const CGeneratedProject& described) : project(described) {}

    ModelArea words, bits;

    // Every path of the first levels, some that lead nowhere too, until there are enough.
    std::vector<Place> Places(std::size_t enough) const;

    // As HostSymbol shows them; a bit number of "" asks for the whole value.
    std::string Lookup(const Item& variable, const std::string& bit) const;
    std::string Lookup(const Place& place, const std::string& bit) const;

    Listing Variables(const HostBrowse& request, bool asTexts) const;
    Listing Below(const Place& place, const HostBrowse& request) const;

    // What a request leaves behind: type names in upper case, members classified anew. On the way to a place, and by
    // the listing there.
    static void Visit(const Place& place);
    static void VisitListing(const Place& place, const HostBrowse& request);

    // Type code and variant type of a variable or member.
    static DWORD CodeOf(const Type& type, bool known);
    static VARTYPE VarTypeOf(const Type& type, bool member);

private:
    std::vector<Place> Children(const Place& parent) const;
    Place Member(const Place& parent, const Item& named) const;
    Place Element(const Place& parent, int index) const;
    Listing Members(const Place& place, const HostBrowse& request) const;
    Listing Elements(const Place& place, const HostBrowse& request) const;
    std::string AreaAddress(bool direct, std::uint32_t block, std::uint32_t offset, int bit, std::uint32_t size,
                            bool isBool) const;

    const CGeneratedProject& project;
};
