#include "platform/mfc/CArray.h"
#include "platform/mfc/CMap.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

using IntMap = CMap<CString, LPCSTR, int, int>;

// The pairs in their order, as "key=value key=value".
std::string Listing(const IntMap& map)
{
    std::string listing;
    for (const auto* pair = map.PGetFirstAssoc(); pair; pair = map.PGetNextAssoc(pair))
        listing += (listing.empty() ? "" : " ") + std::string(pair->key) + "=" + std::to_string(pair->value);
    return listing;
}

TEST(CMap, KeepsTheOrderOfFirstInsertion)
{
    IntMap map(2); // blocks of two: the order goes across blocks
    int value = -1;
    EXPECT_FALSE(map.Lookup("A", value));
    for (const char* key : {"Z", "A", "M", "B", "Y"})
        map.SetAt(key, map.GetCount());
    EXPECT_EQ(Listing(map), "Z=0 A=1 M=2 B=3 Y=4");
    map.SetAt("M", 20); // place and key stay
    EXPECT_EQ(Listing(map), "Z=0 A=1 M=20 B=3 Y=4");
    EXPECT_TRUE(map.Lookup("M", value));
    EXPECT_FALSE(map.Lookup("m", value)); // the case of a key counts
    EXPECT_EQ(value, 20);
    map.SetAt("", 7);
    EXPECT_EQ(map.PLookup("")->value, 7);
}

TEST(CMap, EnumerationGoesOnWhileEntriesAreInserted)
{
    IntMap map;
    map.SetAt("0", 0);
    int visited = 0;
    for (const auto* pair = map.PGetFirstAssoc(); pair; pair = map.PGetNextAssoc(pair)) {
        EXPECT_EQ(pair->value, visited++);
        if (map.GetCount() < 500)
            map.SetAt(std::to_string(map.GetCount()).c_str(), map.GetCount());
        map.SetAt("0", 0);
    }
    EXPECT_EQ(visited, 500);
}

TEST(CMap, ManyEntriesInFewBuckets)
{
    for (const std::uint32_t buckets : {1U, 2U, 17U}) {
        IntMap map;
        map.InitHashTable(buckets, buckets != 2);
        map.SetAt("0", 0);
        const auto* first = map.PLookup("0");
        for (int i = 1; i < 1000; ++i)
            map.SetAt(std::to_string(i).c_str(), i);
        for (int i = 0; i < 1000; ++i) {
            const auto* pair = map.PLookup(std::to_string(i).c_str());
            ASSERT_TRUE(pair);
            EXPECT_EQ(pair->value, i);
        }
        EXPECT_EQ(map.PLookup("0"), first); // a pair stays where it was
        EXPECT_EQ(map.PLookup("1000"), nullptr);
        EXPECT_EQ(map.GetHashTableSize(), buckets);
    }
}

TEST(CMap, EmptiedReusedAndSwapped)
{
    IntMap map;
    map.InitHashTable(181);
    map.SetAt("A", 1);
    map.SetAt("B", 2);
    map.RemoveAll();
    map.RemoveAll();
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_EQ(map.PGetFirstAssoc(), nullptr);
    EXPECT_EQ(map.PLookup("A"), nullptr);
    EXPECT_EQ(map.GetHashTableSize(), 181U);
    map.SetAt("C", 3);
    EXPECT_EQ(Listing(map), "C=3");

    IntMap other(1);
    other.SetAt("X", 10);
    other.SetAt("Y", 11);
    map.Swap(other);
    map.SetAt("Z", 12);
    other.SetAt("D", 4);
    EXPECT_EQ(Listing(map), "X=10 Y=11 Z=12");
    EXPECT_EQ(Listing(other), "C=3 D=4");
    EXPECT_EQ(other.GetHashTableSize(), 181U);
}

TEST(HashKey, SpreadsNumberedNamesEvenly)
{
    constexpr std::uint32_t kNames = 200000;
    std::vector<std::uint32_t> hashes;
    for (std::uint32_t i = 1; i <= kNames; ++i)
        hashes.push_back(HashKey(("A" + std::to_string(i)).c_str()));
    for (const std::uint32_t buckets : {181U, 769U, 25309U, 65536U}) {
        std::vector<double> counts(buckets);
        for (const std::uint32_t hash : hashes)
            ++counts[hash % buckets];
        // The deviation from even counts is about `buckets`, give or take sqrt(2 * buckets).
        const double even = static_cast<double>(kNames) / buckets;
        double deviation = 0;
        for (const double count : counts)
            deviation += (count - even) * (count - even) / even;
        EXPECT_LT(deviation, buckets + 10 * std::sqrt(2.0 * buckets)) << buckets;
    }
}

TEST(HashKey, DependsOnEveryByteAndReadsNoneBehindTheEnd)
{
    std::set<std::uint32_t> hashes;
    for (std::size_t length = 0; length <= 26; ++length) {
        const auto exact = std::make_unique<char[]>(length + 1); // an address checker watches its end
        std::memset(exact.get(), 'A', length);
        hashes.insert(HashKey(exact.get()));
        EXPECT_EQ(HashKey(exact.get()), HashKey(std::string(length, 'A').c_str()));
        for (std::size_t i = 0; i < length; ++i) {
            exact[i] = '_';
            hashes.insert(HashKey(exact.get()));
            exact[i] = 'A';
        }
    }
    EXPECT_EQ(hashes.size(), 27U + 26U * 27U / 2U);
    EXPECT_EQ(HashKey(nullptr), HashKey(""));
}

TEST(CArray, GrowsAndTakesItsOwnItems)
{
    CStringArray names;
    EXPECT_EQ(names.Add("first"), 0);
    for (int i = 1; i < 100; ++i)
        EXPECT_EQ(names.Add(names[0]), i);
    EXPECT_EQ(names.GetAt(99), "first");
    names.SetAt(1, "second");
    names.Truncate(2);
    EXPECT_EQ(names.GetSize(), 2);
    EXPECT_EQ(names[1], "second");
    names.RemoveAll();
    EXPECT_TRUE(names.IsEmpty());
}

} // namespace
