#include <zt_orvex/flow/BitSet.h>

#include "flow/ExpectThrows.h"
#include "flow/TestElements.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
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
constexpr const char* EMPTY = "BitSet is empty; cannot getSmallestElement";
constexpr const char* NONE_FROM_INDEX = "getSmallestElementStartingFromIndex failed";

TEST(BitSetGrowth, ElementAddedToUniverseLaterIsNotAMember) {
    OrderedSet<int> universe = numbers(3);
    BitSet<int> set(universe);
    set.addAll();
    growTo(universe, 200);
    EXPECT_FALSE(set.contains(number(3)));
    EXPECT_FALSE(set.contains(number(199)));
    EXPECT_EQ(indicesOf(set), allBelow(3));
}

TEST(BitSetGrowth, SmallestElementGrowsFirst) {
    OrderedSet<int> universe = numbers(2);
    BitSet<int> set(universe);
    growTo(universe, 200);
    expectThrows<std::invalid_argument>([&] { set.getSmallestElement(); }, EMPTY);
    EXPECT_EQ(set.bitCount(), 200u);
}

TEST(BitSetGrowth, SmallestElementFromIndexReadsNothingBeyondAStaleSetsWords) {
    for (const int size : WORD_EDGE_SIZES) {
        SCOPED_TRACE(size);
        OrderedSet<int> universe = numbers(size);
        BitSet<int> set(universe);
        if (size > 0) set.add(number(size - 1));
        growTo(universe, size + 300);
        for (int i = 0; i < size; ++i) {
            ASSERT_EQ(set.getSmallestElementStartingFromIndex(static_cast<std::uint64_t>(i)),
                      number(size - 1));
        }
        for (int i = size; i < size + 302; ++i) {
            expectThrows<std::logic_error>(
                [&] { set.getSmallestElementStartingFromIndex(static_cast<std::uint64_t>(i)); },
                NONE_FROM_INDEX);
        }
        EXPECT_EQ(set.bitCount(), static_cast<std::uint64_t>(size));
    }
}

// One row of the table of operations: what it does to two stale sets.
struct GrowthRow {
    const char* name;
    std::function<void(BitSet<int>&, BitSet<int>&)> run;
    bool selfGrows;
    bool otherGrows;
};

const std::vector<GrowthRow>& growthRows() {
    using Set = BitSet<int>;
    const int known = number(0);
    static const std::vector<GrowthRow> ROWS = {
        {"copy construction", [](Set& self, Set&) { Set copy(self); }, true, false},
        {"add", [=](Set& self, Set&) { self.add(known); }, true, false},
        {"remove", [=](Set& self, Set&) { self.remove(known); }, true, false},
        {"contains", [=](Set& self, Set&) { self.contains(known); }, true, false},
        {"clear", [](Set& self, Set&) { self.clear(); }, true, false},
        {"addAll", [](Set& self, Set&) { self.addAll(); }, true, false},
        {"isEmpty", [](Set& self, Set&) { (void)self.isEmpty(); }, true, false},
        {"getSmallestElement", [](Set& self, Set&) { self.getSmallestElement(); }, true, false},
        {"getSmallestElementStartingFromIndex",
         [](Set& self, Set&) { self.getSmallestElementStartingFromIndex(0); }, false, false},
        {"operator==", [](Set& self, Set& other) { (void)(self == other); }, true, true},
        {"operator!=", [](Set& self, Set& other) { (void)(self != other); }, true, true},
        {"isSubsetOf", [](Set& self, Set& other) { (void)self.isSubsetOf(other); }, true, false},
        {"unionWith", [](Set& self, Set& other) { self.unionWith(other); }, true, true},
        {"intersectWith", [](Set& self, Set& other) { self.intersectWith(other); }, true, true},
        {"subtract", [](Set& self, Set& other) { self.subtract(other); }, true, true},
        {"toElementSet", [](Set& self, Set&) { self.toElementSet(); }, true, false},
        {"toComplementElementSet", [](Set& self, Set&) { self.toComplementElementSet(); }, true,
         false},
        {"growToUniverse", [](Set& self, Set&) { self.growToUniverse(); }, true, false},
    };
    return ROWS;
}

TEST(BitSetGrowth, EachOperationGrowsTheSetsOfItsRowAndNoOthers) {
    constexpr std::pair<int, int> GROWTHS[] = {{2, 3}, {2, 64}, {2, 65}, {64, 65}, {65, 300}};
    for (const auto& [before, after] : GROWTHS) {
        for (const GrowthRow& row : growthRows()) {
            SCOPED_TRACE(row.name);
            OrderedSet<int> universe = numbers(before);
            BitSet<int> self = setOf(universe, {1});
            BitSet<int> other = setOf(universe, {0, 1});
            growTo(universe, after);
            EXPECT_EQ(self.bitCount(), static_cast<std::uint64_t>(before));
            row.run(self, other);
            EXPECT_EQ(self.bitCount(), static_cast<std::uint64_t>(row.selfGrows ? after : before));
            EXPECT_EQ(other.bitCount(),
                      static_cast<std::uint64_t>(row.otherGrows ? after : before));
            EXPECT_EQ(indicesOf(other), Indices({0, 1}));
        }
    }
}

TEST(BitSetGrowth, FailedElementOperationMayGrowButChangesNoMember) {
    OrderedSet<int> universe = numbers(2);
    BitSet<int> set(universe);
    set.add(number(1));
    growTo(universe, 100);
    expectThrows<std::invalid_argument>([&] { set.add(number(100)); }, NOT_FOUND);
    EXPECT_EQ(indicesOf(set), Indices({1}));
}

TEST(BitSetGrowth, GrowthKeepsMembers) {
    for (const int size : WORD_EDGE_SIZES) {
        for (const int added : {0, 1, 63, 64, 65, 128, 1000}) {
            SCOPED_TRACE(std::to_string(size) + " and " + std::to_string(added));
            OrderedSet<int> universe = numbers(size);
            const Indices members = indicesBelow(size, [](int i) { return i % 3 != 1; });
            const BitSet<int> set = setOf(universe, members);
            growTo(universe, size + added);
            set.growToUniverse();
            ASSERT_EQ(set.bitCount(), static_cast<std::uint64_t>(size + added));
            ASSERT_EQ(indicesOf(set), members);
            set.growToUniverse();
            ASSERT_EQ(indicesOf(set), members);
        }
    }
}

TEST(BitSetGrowth, StaleAndFreshSetsWithTheSameMembersAreEqual) {
    for (const int added : {1, 64, 130}) {
        for (const bool staleFirst : {true, false}) {
            OrderedSet<int> universe = numbers(3);
            BitSet<int> stale = setOf(universe, {0, 2});
            growTo(universe, 3 + added);
            BitSet<int> fresh = setOf(universe, {0, 2});
            EXPECT_TRUE(staleFirst ? stale == fresh : fresh == stale);
            fresh.add(number(2 + added));
            EXPECT_FALSE(staleFirst ? stale == fresh : fresh == stale);
            EXPECT_TRUE(staleFirst ? stale != fresh : fresh != stale);
        }
    }
}

TEST(BitSetGrowth, StaleSupersetCountsAsZeroBeyondItsWords) {
    for (const int size : WORD_EDGE_SIZES) {
        SCOPED_TRACE(size);
        OrderedSet<int> universe = numbers(size);
        BitSet<int> stale(universe);
        stale.addAll();
        growTo(universe, size + 300);
        BitSet<int> set = setOf(universe, allBelow(size));
        EXPECT_TRUE(set.isSubsetOf(stale));
        for (const int beyond : {size, size + 64, size + 299}) {
            set = setOf(universe, {beyond});
            EXPECT_FALSE(set.isSubsetOf(stale));
        }
        EXPECT_EQ(stale.bitCount(), static_cast<std::uint64_t>(size)) << "isSubsetOf grew it";
    }
}

TEST(BitSetGrowth, WholeSetOperationsGrowBothSetsFirst) {
    for (const bool selfIsStale : {true, false}) {
        OrderedSet<int> universe = numbers(3);
        const BitSet<int> stale = setOf(universe, {0, 1});
        growTo(universe, 200);
        const BitSet<int> fresh = setOf(universe, {1, 199});
        const auto run = [&](auto operation) {
            BitSet<int> self(selfIsStale ? stale : fresh);
            (self.*operation)(selfIsStale ? fresh : stale);
            return indicesOf(self);
        };
        EXPECT_EQ(run(&BitSet<int>::unionWith), Indices({0, 1, 199}));
        EXPECT_EQ(run(&BitSet<int>::intersectWith), Indices({1}));
        EXPECT_EQ(run(&BitSet<int>::subtract), selfIsStale ? Indices({0}) : Indices({199}));
    }
}

TEST(BitSetGrowth, ComplementHoldsElementsAddedToUniverseLater) {
    OrderedSet<int> universe = numbers(1);
    BitSet<int> set(universe);
    set.addAll();
    growTo(universe, 66);
    EXPECT_EQ(set.toComplementElementSet().size(), 65u);
    EXPECT_EQ(set.toComplementElementSet().count(number(65)), 1u);
}

} // namespace
} // namespace zt::orvex::flow
