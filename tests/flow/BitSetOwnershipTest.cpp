#include <zt_orvex/flow/BitSet.h>

#include "flow/ExpectThrows.h"
#include "flow/TestElements.h"

#include <zt_orvex/flow/internal/BitSetAccess.h>

#include <gtest/gtest.h>

#include <memory_resource>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace zt::orvex::flow {
namespace {

using testing::expectThrows;

using Indices = std::set<int>;

constexpr const char* NOT_FOUND = "element not found";

TEST(BitSetOwnership, CopyTakesTheUniversesSizeNow) {
    for (const int size : WORD_EDGE_SIZES) {
        for (const int added : {0, 1, 64, 130}) {
            SCOPED_TRACE(std::to_string(size) + " and " + std::to_string(added));
            OrderedSet<int> universe = numbers(size);
            BitSet<int> source(universe);
            source.addAll();
            growTo(universe, size + added);
            const BitSet<int> copy(source);
            ASSERT_EQ(copy.bitCount(), static_cast<std::uint64_t>(size + added));
            ASSERT_EQ(source.bitCount(), static_cast<std::uint64_t>(size + added));
            ASSERT_EQ(indicesOf(copy), allBelow(size));
        }
    }
}

TEST(BitSetOwnership, CopyIsIndependent) {
    const OrderedSet<int> universe = numbers(130);
    BitSet<int> source = setOf(universe, {0, 129});
    BitSet<int> copy(source);
    copy.add(number(64));
    source.remove(number(0));
    EXPECT_EQ(indicesOf(copy), Indices({0, 64, 129}));
    EXPECT_EQ(indicesOf(source), Indices({129}));
}

TEST(BitSetOwnership, CopyAssignmentTakesMembersWhicheverSetIsStale) {
    for (const int size : WORD_EDGE_SIZES) {
        for (const int added : {0, 1, 64, 130}) {
            SCOPED_TRACE(std::to_string(size) + " and " + std::to_string(added));
            OrderedSet<int> universe = numbers(size);
            BitSet<int> stale(universe);
            stale.addAll();
            BitSet<int> staleTarget(stale);
            growTo(universe, size + added);
            BitSet<int> fresh(universe);
            fresh.addAll();
            BitSet<int> freshTarget(fresh);
            freshTarget = stale;
            staleTarget = fresh;
            ASSERT_EQ(indicesOf(freshTarget), allBelow(size));
            ASSERT_EQ(indicesOf(staleTarget), allBelow(size + added));
            freshTarget.clear();
            staleTarget.clear();
            ASSERT_EQ(indicesOf(stale), allBelow(size));
            ASSERT_EQ(indicesOf(fresh), allBelow(size + added));
        }
    }
}

TEST(BitSetOwnership, CopyAssignmentTakesTheUniverseToo) {
    const OrderedSet<int> small = numbers(3);
    const OrderedSet<int> large({100, 200, 300});
    BitSet<int> set = setOf(small, {0, 1});
    BitSet<int> other(large);
    other.add(300);
    set = other;
    EXPECT_TRUE(set.contains(300));
    EXPECT_FALSE(set.contains(100));
    expectThrows<std::invalid_argument>([&] { set.contains(number(0)); }, NOT_FOUND);
}

TEST(BitSetOwnership, AssignmentToItselfChangesNothing) {
    const OrderedSet<int> universe = numbers(130);
    BitSet<int> set = setOf(universe, {0, 129});
    BitSet<int>& alias = set;
    set = alias;
    EXPECT_EQ(indicesOf(set), Indices({0, 129}));
}

TEST(BitSetOwnership, TemporariesCanBeTakenOver) {
    const OrderedSet<int> universe = numbers(130);
    BitSet<int> source = setOf(universe, {1, 128});
    BitSet<int> taken(std::move(source));
    EXPECT_EQ(indicesOf(taken), Indices({1, 128}));
    BitSet<int> assigned(universe);
    assigned = std::move(taken);
    EXPECT_EQ(indicesOf(assigned), Indices({1, 128}));
    std::vector<BitSet<int>> sets;
    for (int i = 0; i < 130; ++i)
        sets.push_back(setOf(universe, {i}));
    for (int i = 0; i < 130; ++i)
        EXPECT_EQ(sets[static_cast<std::size_t>(i)].getSmallestElement(), number(i));
}

// The value of a variable keeps its words in its system's memory; no operation may show it.
TEST(BitSetOwnership, BorrowedWordsBehaveAsOwnedOnes) {
    for (const int added : {0, 1, 64, 130}) {
        SCOPED_TRACE(added);
        OrderedSet<int> universe = numbers(65);
        std::pmr::monotonic_buffer_resource memory;
        const BitSet<int> own = setOf(universe, {1, 64});
        BitSet<int> borrowing = internal::copyIn(memory, own);
        BitSet<int> neighbour = internal::copyIn(memory, own);
        growTo(universe, 65 + added);
        EXPECT_EQ(borrowing, own);
        borrowing.addAll();
        EXPECT_EQ(indicesOf(neighbour), Indices({1, 64}));
        EXPECT_EQ(indicesOf(borrowing), allBelow(65 + added));
        borrowing = neighbour;
        neighbour.clear();
        EXPECT_EQ(indicesOf(borrowing), Indices({1, 64}));
    }
}

/// Gives `use` a set whose words lie in memory that is gone when `use` has returned.
template <typename Use>
void withShortLivedWords(const OrderedSet<int>& universe, const Indices& indices, Use use) {
    std::pmr::monotonic_buffer_resource memory;
    BitSet<int> borrowing = internal::copyIn(memory, setOf(universe, indices));
    use(borrowing);
}

TEST(BitSetOwnership, SetThatTakesOverBorrowedWordsOwnsItsOwn) {
    for (const int size : {10, 64, 65, 1000}) {
        SCOPED_TRACE(size);
        OrderedSet<int> universe = numbers(size);
        const auto expectOwner = [&](BitSet<int>& set) {
            EXPECT_EQ(indicesOf(set), Indices({1, 9}));
            growTo(universe, static_cast<int>(universe.size()) + 100);
            EXPECT_EQ(indicesOf(set), Indices({1, 9}));
        };
        BitSet<int> copied(universe);
        BitSet<int> assigned(universe);
        std::vector<BitSet<int>> moved;
        withShortLivedWords(universe, {1, 9}, [&](BitSet<int>& set) {
            copied = set;
            moved.push_back(BitSet<int>(std::move(set)));
        });
        withShortLivedWords(universe, {1, 9}, [&](BitSet<int>& set) { assigned = std::move(set); });
        expectOwner(copied);
        expectOwner(moved.front());
        expectOwner(assigned);
    }
}

TEST(BitSetOwnership, SwappedSetsOwnTheirWords) {
    for (const int size : {10, 64, 65, 1000}) {
        SCOPED_TRACE(size);
        const OrderedSet<int> universe = numbers(size);
        BitSet<int> outside = setOf(universe, {2});
        withShortLivedWords(universe, {1, 9}, [&](BitSet<int>& set) {
            std::swap(set, outside);
            EXPECT_EQ(indicesOf(set), Indices({2}));
            withShortLivedWords(universe, {3}, [&](BitSet<int>& other) { std::swap(set, other); });
            EXPECT_EQ(indicesOf(set), Indices({3}));
        });
        EXPECT_EQ(indicesOf(outside), Indices({1, 9}));
    }
}

TEST(BitSetOwnership, SetThatWasMovedAwayIsEmptyAndUsable) {
    const OrderedSet<int> universe = numbers(130);
    BitSet<int> source = setOf(universe, {1, 128});
    const BitSet<int> taken(std::move(source));
    EXPECT_TRUE(source.isEmpty());
    source.add(number(7));
    EXPECT_EQ(indicesOf(source), Indices({7}));
    withShortLivedWords(universe, {1, 128}, [&](BitSet<int>& set) {
        const BitSet<int> takenToo(std::move(set));
        EXPECT_TRUE(set.isEmpty());
        set.add(number(7));
        EXPECT_EQ(indicesOf(set), Indices({7}));
        EXPECT_EQ(indicesOf(takenToo), indicesOf(taken));
    });
}

} // namespace
} // namespace zt::orvex::flow
