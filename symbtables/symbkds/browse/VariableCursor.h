// A walk through the variables that does not wait for memory.
#pragma once

#include "platform/mfc/Prefetch.h"
#include "symbkds/frame/CSymbXml.h"

#include <array>
#include <cstdint>
#include <utility>

// The variables in the order of their dictionary, from one of them on.
//
// Records and texts lie wherever the import allocated them. A walk from one to
// the next would spend half its time waiting for them, so they are fetched
// into the processor's cache some variables ahead. The dictionary must not
// change meanwhile.
class CVariableCursor
{
public:
    // `first` may be null: there is nothing to list.
    CVariableCursor(const CSymbXml::Variables& walked, const CSymbXml::Variables::CPair* first)
        : variables(walked), ahead(first)
    {
        for (const CSymbXMLItemDef*& variable : coming)
            variable = FetchNext();
    }

    // The next variable; null at the end.
    const CSymbXMLItemDef* Next()
    {
        const CSymbXMLItemDef* const variable = std::exchange(coming[position], FetchNext());
        position = (position + 1) % kAhead;
        if (const CSymbXMLItemDef* const soon = coming[(position + kAhead / 2) % kAhead])
            FetchName(soon->name);
        return variable;
    }

private:
    static constexpr std::size_t kAhead = 16; // measured: with fewer they come too late, more win nothing

    // A name may reach into a second cache line.
    static void FetchName(LPCSTR name)
    {
        constexpr std::uintptr_t kUsualNameBytes = 32;
        Prefetch(name);
        // Behind a shorter name this address belongs to something else, and nothing but the cache sees it.
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        Prefetch(reinterpret_cast<const void*>(reinterpret_cast<std::uintptr_t>(name) + kUsualNameBytes - 1));
    }

    const CSymbXMLItemDef* FetchNext()
    {
        if (!ahead)
            return nullptr;
        const CSymbXMLItemDef* const variable = ahead->value;
        Prefetch(variable);
        Prefetch(&variable->declaredTypeText); // it may reach into the next cache line
        ahead = variables.PGetNextAssoc(ahead);
        Prefetch(ahead);
        return variable;
    }

    const CSymbXml::Variables& variables;
    const CSymbXml::Variables::CPair* ahead;
    std::array<const CSymbXMLItemDef*, kAhead> coming;
    std::size_t position = 0; // of the next variable in `coming`
};
