#pragma once

#include "platform/mfc/CString.h"
#include "platform/mfc/Exceptions.h"

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
// Entries live in blocks of `blockSize` in the order of their first insertion;
// that is the order of enumeration, and a pair stays where it is until it is
// removed, so an enumeration goes on while entries are inserted. A bucket keeps
// the addresses and the hashes of its entries in one run of memory: a look-up
// compares neighbouring hashes and touches one entry. Operations that allocate
// raise CMemoryException and leave the map as it was.
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

    // Sets the number of buckets of an empty map; with `allocate` the bucket
    // array is made now, otherwise at the first insertion.
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
            return nullptr;
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
        if (!runs)
            AllocateBuckets();
        const std::uint32_t hash = HashKey(key);
        Run*& run = runs[hash % bucketCount];
        if (CPair* pair = FindIn(run, hash, key))
            return pair->value;
        KEY ownKey(key);
        MakeRoom(run);
        Entry* entry = NewEntry(std::move(ownKey));
        run->Entries()[run->used] = entry;
        run->Hashes()[run->used] = hash;
        ++run->used;
        ++count;
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
        if (runs)
            for (std::uint32_t bucket = 0; bucket < bucketCount; ++bucket)
                std::free(runs[bucket]);
        std::free(std::exchange(runs, nullptr));
        first = last = nullptr;
        count = usedInBlock = 0;
    }

    void Swap(CMap& other) noexcept
    {
        std::swap(runs, other.runs);
        std::swap(bucketCount, other.bucketCount);
        std::swap(blockEntries, other.blockEntries);
        std::swap(blocks, other.blocks);
        std::swap(usedInBlock, other.usedInBlock);
        std::swap(first, other.first);
        std::swap(last, other.last);
        std::swap(count, other.count);
    }

private:
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

        static std::size_t Bytes(std::size_t room) noexcept
        {
            return sizeof(Run) + room * (sizeof(Entry*) + sizeof(std::uint32_t));
        }
    };

    struct alignas(Entry) Block
    {
        Block* older;

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

    void AllocateBuckets()
    {
        runs = static_cast<Run**>(std::calloc(bucketCount, sizeof(Run*)));
        if (!runs)
            AfxThrowMemoryException();
    }

    static void MakeRoom(Run*& run)
    {
        if (run && run->used < run->room)
            return;
        const std::uint32_t room = run ? run->room * 2 : 2;
        Run* larger = static_cast<Run*>(std::malloc(Run::Bytes(room)));
        if (!larger)
            AfxThrowMemoryException();
        larger->used = run ? run->used : 0;
        larger->room = room;
        if (run) {
            std::memcpy(larger->Entries(), run->Entries(), run->used * sizeof(Entry*));
            std::memcpy(larger->Hashes(), run->Hashes(), run->used * sizeof(std::uint32_t));
            std::free(run);
        }
        run = larger;
    }

    Entry* NewEntry(KEY&& key)
    {
        if (!blocks || usedInBlock == blockEntries) {
            constexpr std::size_t kMostEntries = (PTRDIFF_MAX - sizeof(Block)) / sizeof(Entry);
            const std::size_t entries = static_cast<std::size_t>(blockEntries);
            void* memory = entries <= kMostEntries ? std::malloc(sizeof(Block) + entries * sizeof(Entry)) : nullptr;
            if (!memory)
                AfxThrowMemoryException();
            blocks = new (memory) Block{blocks};
            usedInBlock = 0;
        }
        Entry* entry = new (blocks->Entries() + usedInBlock) Entry{{std::move(key), VALUE()}, nullptr};
        ++usedInBlock;
        (last ? last->next : first) = entry;
        last = entry;
        return entry;
    }

    Run** runs = nullptr;
    std::uint32_t bucketCount = 17;
    int blockEntries;
    Block* blocks = nullptr; // the newest first
    int usedInBlock = 0;
    Entry* first = nullptr;
    Entry* last = nullptr;
    int count = 0;
};
