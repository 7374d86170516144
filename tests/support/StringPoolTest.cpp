#include <zt_orvex/support/StringPool.h>

#include "support/StringPoolProbe.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace zt::orvex::internal {
namespace {

using testing::Random;
using testing::rounds;

using Key = ConvertibleBasicStringView<char>;
using Value = ConvertibleBasicStringView<char16_t>;

struct Counters {
    std::uint64_t lookups;
    std::uint64_t hits;
    std::uint64_t pooled;
    std::uint64_t saved;
    std::size_t entries;
};

void expectCounters(const StringPool& pool, const Counters& expected) {
    const StringPoolProbe probe(pool);
    EXPECT_EQ(probe.lookups(), expected.lookups);
    EXPECT_EQ(probe.hits(), expected.hits);
    EXPECT_EQ(probe.pooled(), expected.pooled);
    EXPECT_EQ(probe.saved(), expected.saved);
    EXPECT_EQ(probe.entries(), expected.entries);
}

TEST(StringPool, StartsEmpty) {
    const StringPool pool;
    expectCounters(pool, {0, 0, 0, 0, 0});
    EXPECT_FALSE(pool.lookup("x"));
}

TEST(StringPool, FieldsHaveTheirOrder) { EXPECT_TRUE(StringPoolProbe(StringPool()).isInOrder()); }

TEST(StringPool, HitGivesTheCallersOwnText) {
    const std::u16string text = u"idx";
    StringPool pool;
    pool.poolIfShort("idx", text);
    const auto found = pool.lookup("idx");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->data(), text.data());
    EXPECT_EQ(found->size(), 3U);
}

TEST(StringPool, HitOnThreeBytesSavesEightForAnyValue) {
    StringPool pool;
    pool.poolIfShort("idx", u"a much longer text than the key");
    pool.lookup("idx");
    expectCounters(pool, {1, 1, 16, 8, 1});
    pool.lookup("idx");
    expectCounters(pool, {2, 2, 16, 16, 1});
}

TEST(StringPool, MissCountsOnlyAsALookup) {
    StringPool pool;
    pool.poolIfShort("a", u"a");
    EXPECT_FALSE(pool.lookup("b"));
    expectCounters(pool, {1, 0, 16, 0, 1});
}

TEST(StringPool, SixteenBytesArePooledAndSeventeenAreNotEvenCounted) {
    StringPool pool;
    pool.poolIfShort("abcdefghijklmnop", u"16");
    pool.poolIfShort("abcdefghijklmnopq", u"17");
    expectCounters(pool, {0, 0, 16, 0, 1});
    EXPECT_TRUE(pool.lookup("abcdefghijklmnop") == Value(u"16"));
    EXPECT_FALSE(pool.lookup("abcdefghijklmnopq"));
    expectCounters(pool, {1, 1, 16, 34, 1});
}

TEST(StringPool, EmptyKeyIsAKey) {
    StringPool pool;
    EXPECT_FALSE(pool.lookup(""));
    pool.poolIfShort("", u"nothing");
    EXPECT_TRUE(pool.lookup(Key()) == Value(u"nothing"));
    expectCounters(pool, {2, 1, 16, 2, 1});
}

TEST(StringPool, LastValueOfAKeyWins) {
    StringPool pool;
    pool.poolIfShort("a", u"first");
    pool.poolIfShort("a", u"second");
    EXPECT_TRUE(pool.lookup("a") == Value(u"second"));
    expectCounters(pool, {1, 1, 32, 4, 1});
}

TEST(StringPool, ZeroInsideAKeyCountsAndZeroAtItsEndDoesNot) {
    StringPool pool;
    pool.poolIfShort(Key("a\0b", 3), u"b");
    pool.poolIfShort(Key("a\0c", 3), u"c");
    pool.poolIfShort("a", u"a");
    EXPECT_TRUE(pool.lookup(Key("a\0b", 3)) == Value(u"b"));
    EXPECT_TRUE(pool.lookup(Key("a\0c", 3)) == Value(u"c"));
    EXPECT_TRUE(pool.lookup(Key("a\0", 2)) == Value(u"a"));
    EXPECT_EQ(StringPoolProbe(pool).entries(), 3U);
    EXPECT_EQ(StringPoolProbe(pool).saved(), 8U + 8U + 6U);
}

TEST(StringPool, EmptyValueIsFound) {
    StringPool pool;
    pool.poolIfShort("a", Value());
    const auto found = pool.lookup("a");
    ASSERT_TRUE(found);
    EXPECT_TRUE(found->empty());
}

TEST(StringPool, IsNotCopied) {
    static_assert(!std::is_copy_constructible_v<StringPool>);
    static_assert(!std::is_copy_assignable_v<StringPool>);
}

TEST(StringPool, AgreesWithAPlainMap) {
    Random random;
    SCOPED_TRACE(random.describe());
    const std::u16string text(1000, u'x');
    StringPool pool;
    std::map<std::string, Value> plain;
    Counters expected = {0, 0, 0, 0, 0};
    for (std::size_t round = 0; round < rounds(20000); ++round) {
        std::string key;
        const std::size_t length = random.below(random.oneIn(4) ? 20 : 4);
        while (key.size() < length)
            key.push_back(random.pick("ab\0\xFF"));
        std::string padded = key;
        if (key.size() <= 16) padded.resize(16, '\0');
        if (random.oneIn(2)) {
            const Value value(text.data() + random.below(900), random.below(100));
            pool.poolIfShort(key, value);
            if (key.size() > 16) continue;
            plain[padded] = value;
            expected.pooled += 16;
        } else {
            const auto found = pool.lookup(key);
            const auto row = plain.find(padded);
            ASSERT_EQ(found.has_value(), row != plain.end());
            if (key.size() <= 16) ++expected.lookups;
            if (!found) continue;
            ASSERT_EQ(found->data(), row->second.data());
            ASSERT_EQ(found->size(), row->second.size());
            ++expected.hits;
            expected.saved += 2 * key.size() + 2;
        }
    }
    expected.entries = plain.size();
    expectCounters(pool, expected);
}

} // namespace
} // namespace zt::orvex::internal
