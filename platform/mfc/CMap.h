#pragma once

#include "platform/mfc/CString.h"
#include "platform/mfc/Exceptions.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <type_traits>
#include <utility>

// The hash of a key, well mixed in all 32 bits. It differs from process to
// process, so that nobody can write an export whose names all share a bucket.
PLATFORM_API std::uint32_t HashKey(LPCSTR key) noexcept;

// A chained hash map with a fixed number of buckets.
//
// Entries live in blocks of 1, 2, 4 and so on up to `blockSize`, in the order of
// their first insertion; that is the order of enumeration, and a pair stays
// where it is until it is removed, so an enumeration goes on while entries are
// inserted. A bucket keeps the addresses and the hashes of its entries in one
// run of memory: a look-up compares neighbouring hashes and touches one entry.
// Unless they were asked for at once, a map has no buckets before its ninth
// entry: so few are compared one by one. Operations that allocate raise
// CMemoryException and leave the map as it was.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap
{
    static_assert(std::is_trivially_copyable_v<VALUE>);

public:
    struct CPair
    {
        const KEY key;
        VALUE value;
    };

    explicit CMap(int blockSize = 10) noexcept : blockEntries(blockSize) {}
    CMap(const CMap&) = delete;
    CMap& operator=(const CMap&) = delete;
    ~CMap() { RemoveAll(); }

    // Empties the map and sets its number of buckets; with `allocate` the bucket
    // array is made now, otherwise when there are entries enough.
    void InitHashTable(std::uint32_t buckets, bool allocate = true)
    {
        RemoveAll(); // an insertion that failed may have left memory behind
        bucketCount = buckets;
        if (allocate)
            AllocateBuckets();
    }

    int GetCount() const noexcept { return count; }
    bool IsEmpty() const noexcept { return count == 0; }
    std::uint32_t GetHashTableSize() const noexcept { return bucketCount; }

    // The entry of a key; null when there is none.
    CPair* PLookup(ARG_KEY key) const noexcept
    {
        if (!runs)
            return FindAmongFew(key);
        const std::uint32_t hash = HashKey(key);
        return FindIn(runs[hash % bucketCount], hash, key);
    }

    bool Lookup(ARG_KEY key, VALUE& value) const noexcept
    {
        const CPair* pair = PLookup(key);
        if (pair)
            value = pair->value;
        return pair != nullptr;
    }

    // The value of a key; of a new key a value-initialised one.
    VALUE& operator[](ARG_KEY key)
    {
        if (!runs) {
            if (CPair* pair = FindAmongFew(key))
                return pair->value;
            if (count < kFewEntries)
                return NewEntry(KEY(key))->value;
            MakeBuckets();
        }
        const std::uint32_t hash = HashKey(key);
        Run*& run = runs[hash % bucketCount];
        if (CPair* pair = FindIn(run, hash, key))
            return pair->value;
        KEY ownKey(key);
        if (!MakeRoom(run))
            AfxThrowMemoryException();
        Entry* entry = NewEntry(std::move(ownKey));
        run->Add(entry, hash);
        return entry->value;
    }

    // Inserts the entry or replaces its value; the key of an existing entry stays.
    void SetAt(ARG_KEY key, ARG_VALUE value) { (*this)[key] = value; }

    // The first entry and the one after `pair`; null at the end.
    CPair* PGetFirstAssoc() const noexcept { return first; }
    CPair* PGetNextAssoc(const CPair* pair) const noexcept { return static_cast<const Entry*>(pair)->next; }

    // Removes every entry and gives the bucket array and all blocks back; the number of buckets stays.
    void RemoveAll() noexcept
    {
        for (Entry* entry = first; entry;)
            std::exchange(entry, entry->next)->~Entry();
        while (blocks)
            std::free(std::exchange(blocks, blocks->older));
        FreeBuckets();
        first = last = nullptr;
        count = 0;
    }

    void Swap(CMap& other) noexcept
    {
        std::swap(runs, other.runs);
        std::swap(bucketCount, other.bucketCount);
        std::swap(blockEntries, other.blockEntries);
        std::swap(blocks, other.blocks);
        std::swap(first, other.first);
        std::swap(last, other.last);
        std::swap(count, other.count);
    }

private:
    static constexpr int kFewEntries = 8;

    struct Entry : CPair
    {
        Entry* next;
    };

    // The entries of one bucket: this header, `room` addresses, `room` hashes.
    struct Run
    {
        std::uint32_t used;
        std::uint32_t room;

        Entry** Entries() noexcept { return reinterpret_cast<Entry**>(this + 1); }
        std::uint32_t* Hashes() noexcept { return reinterpret_cast<std::uint32_t*>(Entries() + room); }
        // There must be room.
        void Add(Entry* entry, std::uint32_t hash) noexcept
        {
            Entries()[used] = entry;
            Hashes()[used++] = hash;
        }

        static std::size_t Bytes(std::size_t room) noexcept
        {
            return sizeof(Run) + room * (sizeof(Entry*) + sizeof(std::uint32_t));
        }
    };

    struct alignas(Entry) Block
    {
        Block* older;
        int used;
        int room;

        Entry* Entries() noexcept { return reinterpret_cast<Entry*>(this + 1); }
    };

    static CPair* FindIn(Run* run, std::uint32_t hash, ARG_KEY key) noexcept
    {
        if (!run)
            return nullptr;
        Entry** const entries = run->Entries();
        const std::uint32_t* const hashes = run->Hashes();
        for (std::uint32_t i = 0; i < run->used; ++i)
            if (hashes[i] == hash && entries[i]->key == key)
                return entries[i];
        return nullptr;
    }

    CPair* FindAmongFew(ARG_KEY key) const noexcept
    {
        for (Entry* entry = first; entry; entry = entry->next)
            if (entry->key == key)
                return entry;
        return nullptr;
    }

    void AllocateBuckets()
    {
        runs = static_cast<Run**>(std::calloc(bucketCount, sizeof(Run*)));
        if (!runs)
            AfxThrowMemoryException();
    }

    // Puts the entries that there are into buckets.
    void MakeBuckets()
    {
        AllocateBuckets();
        for (Entry* entry = first; entry; entry = entry->next) {
            const std::uint32_t hash = HashKey(entry->key);
            Run*& run = runs[hash % bucketCount];
            if (!MakeRoom(run)) {
                FreeBuckets();
                AfxThrowMemoryException();
            }
            run->Add(entry, hash);
        }
    }

    void FreeBuckets() noexcept
    {
        if (runs)
            for (std::uint32_t bucket = 0; bucket < bucketCount; ++bucket)
                std::free(runs[bucket]);
        std::free(std::exchange(runs, nullptr));
    }

    // False when memory is short; the run is as it was then.
    static bool MakeRoom(Run*& run) noexcept
    {
        if (run && run->used < run->room)
            return true;
        const std::uint32_t room = run ? run->room * 2 : 2;
        Run* larger = static_cast<Run*>(std::malloc(Run::Bytes(room)));
        if (!larger)
            return false;
        larger->used = run ? run->used : 0;
        larger->room = room;
        if (run) {
            std::memcpy(larger->Entries(), run->Entries(), run->used * sizeof(Entry*));
            std::memcpy(larger->Hashes(), run->Hashes(), run->used * sizeof(std::uint32_t));
            std::free(run);
        }
        run = larger;
        return true;
    }

    Entry* NewEntry(KEY&& key)
    {
        if (!blocks || blocks->used == blocks->room) {
            const int room = blocks ? std::min(blocks->room * 2, blockEntries) : 1;
            void* memory = std::malloc(sizeof(Block) + static_cast<std::size_t>(room) * sizeof(Entry));
            if (!memory)
                AfxThrowMemoryException();
            blocks = new (memory) Block{blocks, 0, room};
        }
        Entry* entry = new (blocks->Entries() + blocks->used++) Entry{{std::move(key), VALUE()}, nullptr};
        (last ? last->next : first) = entry;
        last = entry;
        ++count;
        return entry;
    }

    Run** runs = nullptr;
    std::uint32_t bucketCount = 17;
    int blockEntries;
    Block* blocks = nullptr; // the newest first
    Entry* first = nullptr;
    Entry* last = nullptr;
    int count = 0;
};
