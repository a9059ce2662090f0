#include "platform/mfc/CMap.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
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

TEST(CMap, ManyEntriesInFewBuckets)
{
    for (const std::uint32_t buckets : {1U, 2U, 17U}) {
        IntMap map;
        map.InitHashTable(buckets, buckets != 2);
        map.SetAt("0", 0);
        const auto* first = map.PLookup("0");
        for (int i = 1; i < 1000; ++i) {
            EXPECT_EQ(map.PLookup(std::to_string(i).c_str()), nullptr);
            map.SetAt(std::to_string(i).c_str(), i);
            map.SetAt("1", 1); // is there, whether or not there are buckets yet
            EXPECT_EQ(map.GetCount(), i + 1);
        }
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

    // One with buckets and half a block, one with neither: each goes on as the other one would have.
    IntMap other(3);
    for (int i = 0; i < 11; ++i)
        other.SetAt(std::to_string(i).c_str(), i);
    map.InitHashTable(181, false);
    map.SetAt("C", 3);
    map.Swap(other);
    for (int i = 11; i < 40; ++i) {
        map.SetAt(std::to_string(i).c_str(), i);
        other.SetAt(std::to_string(i).c_str(), i);
    }
    for (int i = 0; i < 40; ++i) {
        EXPECT_NE(map.PLookup(std::to_string(i).c_str()), nullptr) << i;
        EXPECT_EQ(other.PLookup(std::to_string(i).c_str()) != nullptr, i > 10) << i;
    }
    map.RemoveAll();
    EXPECT_EQ(Listing(other).find("C=3 11=11 12=12 "), 0U);
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

// Or somebody could write an export whose names all share a bucket.
TEST(HashKeyDeathTest, DiffersInEveryProcess)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // a new program, not a copy of this one
    const auto told = [] { return "hash " + std::to_string(HashKey("MOTOR1")) + "."; };
    const auto tell = [&told] { std::exit((std::fputs(told().c_str(), stderr), 0)); };
    EXPECT_EXIT(tell(), testing::ExitedWithCode(0), testing::AllOf(testing::StartsWith("hash "), testing::Not(told())));
}

} // namespace
