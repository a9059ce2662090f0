#pragma once

#include "platform/mfc/CString.h"
#include "platform/mfc/Prefetch.h"

// The objects that a map leads to, in its order.
//
// They and their texts lie wherever they were allocated, so a walk from one to the next would spend most of its time
// waiting for memory: what comes later is fetched into the processor's cache meanwhile. The map must not change.
template <class Map, class Object>
class CMapWalk
{
public:
    // From the entry `first` on (null: no entry); `fetchedText` is the text that a visitor reads of each object.
    CMapWalk(const Map& walked, const typename Map::CPair* first, CString Object::*fetchedText)
        : map(walked), text(fetchedText), next(first), textAhead(Forward(first, kTextsAhead)),
          objectAhead(Forward(first, kObjectsAhead))
    {}

    // The next object; null at the end.
    const Object* Next()
    {
        if (!next)
            return nullptr;
        if (objectAhead) {
            Prefetch(objectAhead->value);
            objectAhead = map.PGetNextAssoc(objectAhead);
        }
        if (textAhead) {
            Prefetch(static_cast<LPCSTR>(textAhead->value->*text));
            textAhead = map.PGetNextAssoc(textAhead);
        }
        const Object* const object = next->value;
        next = map.PGetNextAssoc(next);
        return object;
    }

private:
    // Measured: with fewer they come too late, more win nothing.
    static constexpr int kObjectsAhead = 12;
    static constexpr int kTextsAhead = 6;

    const typename Map::CPair* Forward(const typename Map::CPair* pair, int entries) const
    {
        for (int i = 0; i < entries && pair; ++i)
            pair = map.PGetNextAssoc(pair);
        return pair;
    }

    const Map& map;
    CString Object::*const text;
    const typename Map::CPair* next;
    const typename Map::CPair* textAhead;
    const typename Map::CPair* objectAhead;
};
