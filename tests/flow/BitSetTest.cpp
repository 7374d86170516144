#include <zt_orvex/flow/BitSet.h>

#include "flow/ExpectThrows.h"
#include "flow/TestElements.h"

#include <zt_orvex/ast/IAstView.h>
#include <zt_orvex/ast/SymbolView.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <iterator>
#include <limits>
#include <set>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <unordered_set>
#include <utility>
#include <vector>

namespace zt::orvex::flow {
namespace {

using testing::expectThrows;

using Indices = std::set<int>;

constexpr const char* NOT_FOUND = "element not found";
constexpr const char* EMPTY = "BitSet is empty; cannot getSmallestElement";
constexpr const char* NONE_FROM_INDEX = "getSmallestElementStartingFromIndex failed";

TEST(BitSet, StartsEmptyOverEveryUniverse) {
    for (const int size : WORD_EDGE_SIZES) {
        SCOPED_TRACE(size);
        const OrderedSet<int> universe = numbers(size);
        const BitSet<int> set(universe);
        EXPECT_EQ(set.bitCount(), static_cast<std::uint64_t>(size));
        EXPECT_TRUE(set.isEmpty());
        for (int i = 0; i < size; ++i)
            EXPECT_FALSE(set.contains(number(i)));
        EXPECT_EQ(indicesOf(set), Indices());
    }
}

TEST(BitSet, OverEmptyUniverseHasNothingToSay) {
    const OrderedSet<int> universe;
    BitSet<int> set(universe);
    const BitSet<int> other(universe);
    EXPECT_TRUE(set.isEmpty());
    EXPECT_TRUE(set.isSubsetOf(other));
    EXPECT_TRUE(set == other);
    EXPECT_FALSE(set != other);
    expectThrows<std::invalid_argument>([&] { set.getSmallestElement(); }, EMPTY);
    expectThrows<std::logic_error>([&] { set.getSmallestElementStartingFromIndex(0); },
                                   NONE_FROM_INDEX);
    set.addAll();
    set.clear();
    set.unionWith(other);
    set.intersectWith(other);
    set.subtract(other);
    set.growToUniverse();
    EXPECT_TRUE(set.isEmpty());
    EXPECT_TRUE(set.toElementSet().empty());
    EXPECT_TRUE(set.toComplementElementSet().empty());
    EXPECT_TRUE(BitSet<int>(set).isEmpty());
}

TEST(BitSet, AddMakesOneMember) {
    for (const int size : WORD_EDGE_SIZES) {
        SCOPED_TRACE(size);
        const OrderedSet<int> universe = numbers(size);
        for (int i = 0; i < size; ++i) {
            BitSet<int> set(universe);
            set.add(number(i));
            ASSERT_EQ(indicesOf(set), Indices({i}));
            ASSERT_TRUE(set.contains(number(i)));
            ASSERT_FALSE(set.isEmpty());
            set.add(number(i));
            ASSERT_EQ(indicesOf(set), Indices({i}));
        }
    }
}

TEST(BitSet, RemoveTakesOneMemberAway) {
    for (const int size : WORD_EDGE_SIZES) {
        SCOPED_TRACE(size);
        const OrderedSet<int> universe = numbers(size);
        for (int i = 0; i < size; ++i) {
            BitSet<int> set(universe);
            set.addAll();
            set.remove(number(i));
            ASSERT_EQ(indicesOf(set), indicesBelow(size, [=](int j) { return j != i; }));
            ASSERT_FALSE(set.contains(number(i)));
            set.remove(number(i));
            ASSERT_EQ(indicesOf(set), indicesBelow(size, [=](int j) { return j != i; }));
        }
    }
}

TEST(BitSet, AddAllThenClear) {
    for (const int size : WORD_EDGE_SIZES) {
        SCOPED_TRACE(size);
        const OrderedSet<int> universe = numbers(size);
        BitSet<int> set(universe);
        set.addAll();
        EXPECT_EQ(indicesOf(set), allBelow(size));
        EXPECT_EQ(set.isEmpty(), size == 0);
        EXPECT_TRUE(set.toComplementElementSet().empty());
        set.clear();
        EXPECT_TRUE(set.isEmpty());
        EXPECT_EQ(set.toComplementElementSet().size(), static_cast<std::size_t>(size));
    }
}

// The bits that `addAll` sets above the universe's size would come to light when the universe grows
// within the word.
TEST(BitSet, AddAllLeavesNoMemberBeyondTheUniverse) {
    for (const int size : WORD_EDGE_SIZES) {
        for (const int added : {1, 62, 63, 64, 65, 130}) {
            SCOPED_TRACE(std::to_string(size) + " and " + std::to_string(added));
            OrderedSet<int> universe = numbers(size);
            BitSet<int> set(universe);
            set.addAll();
            set.addAll();
            growTo(universe, size + added);
            ASSERT_EQ(indicesOf(set), allBelow(size));
            set.addAll();
            ASSERT_EQ(indicesOf(set), allBelow(size + added));
        }
    }
}

TEST(BitSet, ElementAddedToUniverseLaterIsNotAMember) {
    OrderedSet<int> universe = numbers(3);
    BitSet<int> set(universe);
    set.addAll();
    growTo(universe, 200);
    EXPECT_FALSE(set.contains(number(3)));
    EXPECT_FALSE(set.contains(number(199)));
    EXPECT_EQ(indicesOf(set), allBelow(3));
}

TEST(BitSet, ElementUnknownToTheUniverseIsAnError) {
    OrderedSet<int> universe = numbers(70);
    BitSet<int> set(universe);
    set.add(number(64));
    expectThrows<std::invalid_argument>([&] { set.add(number(70)); }, NOT_FOUND);
    expectThrows<std::invalid_argument>([&] { set.remove(number(70)); }, NOT_FOUND);
    expectThrows<std::invalid_argument>([&] { set.contains(number(70)); }, NOT_FOUND);
    EXPECT_EQ(indicesOf(set), Indices({64}));
    growTo(universe, 140);
    expectThrows<std::invalid_argument>([&] { set.add(number(140)); }, NOT_FOUND);
    EXPECT_EQ(indicesOf(set), Indices({64}));
}

TEST(BitSet, SmallestElementIsThatOfLowestIndex) {
    for (const int size : WORD_EDGE_SIZES) {
        SCOPED_TRACE(size);
        const OrderedSet<int> universe = numbers(size);
        BitSet<int> set(universe);
        for (int i = size - 1; i >= 0; --i) {
            set.add(number(i));
            ASSERT_EQ(set.getSmallestElement(), number(i));
        }
        for (int i = 0; i < size; ++i) {
            ASSERT_EQ(set.getSmallestElement(), number(i));
            set.remove(number(i));
        }
        expectThrows<std::invalid_argument>([&] { set.getSmallestElement(); }, EMPTY);
    }
}

TEST(BitSet, LowestIndexNotLowestValueIsSmallest) {
    const OrderedSet<std::string> universe({"z", "a", "m"});
    BitSet<std::string> set(universe);
    set.add("m");
    EXPECT_EQ(set.getSmallestElement(), "m");
    set.add("a");
    EXPECT_EQ(set.getSmallestElement(), "a");
    set.add("z");
    EXPECT_EQ(set.getSmallestElement(), "z");
}

TEST(BitSet, SmallestElementGrowsFirst) {
    OrderedSet<int> universe = numbers(2);
    BitSet<int> set(universe);
    growTo(universe, 200);
    expectThrows<std::invalid_argument>([&] { set.getSmallestElement(); }, EMPTY);
    EXPECT_EQ(set.bitCount(), 200u);
}

TEST(BitSet, SmallestElementsAreReferencesIntoTheUniverse) {
    const OrderedSet<std::string> universe({"a", "b"});
    BitSet<std::string> set(universe);
    set.add("b");
    static_assert(std::is_same_v<decltype(set.getSmallestElement()), const std::string&>);
    static_assert(
        std::is_same_v<decltype(set.getSmallestElementStartingFromIndex(0)), const std::string&>);
    EXPECT_EQ(&set.getSmallestElement(), &universe.elementAt(1));
    EXPECT_EQ(&set.getSmallestElementStartingFromIndex(0), &universe.elementAt(1));
}

TEST(BitSet, SmallestElementFromIndexSkipsLowerMembers) {
    for (const int size : WORD_EDGE_SIZES) {
        SCOPED_TRACE(size);
        const OrderedSet<int> universe = numbers(size);
        const BitSet<int> set =
            setOf(universe, indicesBelow(size, [](int i) { return i % 7 == 6 || i % 64 == 0; }));
        int next = size;
        for (int i = size + 2; i >= 0; --i) {
            if (i < size && set.contains(number(i))) next = i;
            const auto index = static_cast<std::uint64_t>(i);
            if (next < size) {
                ASSERT_EQ(set.getSmallestElementStartingFromIndex(index), number(next));
            } else {
                expectThrows<std::logic_error>(
                    [&] { set.getSmallestElementStartingFromIndex(index); }, NONE_FROM_INDEX);
            }
        }
    }
}

TEST(BitSet, SmallestElementFromIndexBeyondTheEndIsAnError) {
    const OrderedSet<int> universe = numbers(64);
    BitSet<int> set(universe);
    set.addAll();
    for (const std::uint64_t index : {std::uint64_t{64}, std::uint64_t{65}, std::uint64_t{1} << 32,
                                      std::numeric_limits<std::uint64_t>::max()}) {
        expectThrows<std::logic_error>([&] { set.getSmallestElementStartingFromIndex(index); },
                                       NONE_FROM_INDEX);
    }
}

TEST(BitSet, SmallestElementFromIndexReadsNothingBeyondAStaleSetsWords) {
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

TEST(BitSet, EachOperationGrowsTheSetsOfItsRowAndNoOthers) {
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

TEST(BitSet, FailedElementOperationMayGrowButChangesNoMember) {
    OrderedSet<int> universe = numbers(2);
    BitSet<int> set(universe);
    set.add(number(1));
    growTo(universe, 100);
    expectThrows<std::invalid_argument>([&] { set.add(number(100)); }, NOT_FOUND);
    EXPECT_EQ(indicesOf(set), Indices({1}));
}

TEST(BitSet, GrowthKeepsMembers) {
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

TEST(BitSet, CopyTakesTheUniversesSizeNow) {
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

TEST(BitSet, CopyIsIndependent) {
    const OrderedSet<int> universe = numbers(130);
    BitSet<int> source = setOf(universe, {0, 129});
    BitSet<int> copy(source);
    copy.add(number(64));
    source.remove(number(0));
    EXPECT_EQ(indicesOf(copy), Indices({0, 64, 129}));
    EXPECT_EQ(indicesOf(source), Indices({129}));
}

TEST(BitSet, CopyAssignmentTakesMembersWhicheverSetIsStale) {
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

TEST(BitSet, CopyAssignmentTakesTheUniverseToo) {
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

TEST(BitSet, AssignmentToItselfChangesNothing) {
    const OrderedSet<int> universe = numbers(130);
    BitSet<int> set = setOf(universe, {0, 129});
    BitSet<int>& alias = set;
    set = alias;
    EXPECT_EQ(indicesOf(set), Indices({0, 129}));
}

TEST(BitSet, TemporariesCanBeTakenOver) {
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

TEST(BitSet, EqualityComparesMembers) {
    for (const int size : WORD_EDGE_SIZES) {
        SCOPED_TRACE(size);
        const OrderedSet<int> universe = numbers(size);
        BitSet<int> a(universe);
        BitSet<int> b(universe);
        EXPECT_TRUE(a == b);
        EXPECT_FALSE(a != b);
        for (int i = 0; i < size; ++i) {
            a.add(number(i));
            ASSERT_FALSE(a == b);
            ASSERT_FALSE(b == a);
            ASSERT_TRUE(a != b);
            ASSERT_TRUE(b != a);
            b.add(number(i));
            ASSERT_TRUE(a == b);
            ASSERT_FALSE(a != b);
        }
        EXPECT_TRUE(a == a);
        EXPECT_FALSE(a != a);
    }
}

TEST(BitSet, StaleAndFreshSetsWithTheSameMembersAreEqual) {
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

TEST(BitSet, SubsetHoldsWhenNoMemberIsMissing) {
    for (const int size : WORD_EDGE_SIZES) {
        SCOPED_TRACE(size);
        const OrderedSet<int> universe = numbers(size);
        BitSet<int> all(universe);
        all.addAll();
        const BitSet<int> none(universe);
        EXPECT_TRUE(none.isSubsetOf(all));
        EXPECT_TRUE(none.isSubsetOf(none));
        EXPECT_TRUE(all.isSubsetOf(all));
        EXPECT_EQ(all.isSubsetOf(none), size == 0);
        for (int i = 0; i < size; ++i) {
            const BitSet<int> one = setOf(universe, {i});
            BitSet<int> rest(all);
            rest.remove(number(i));
            ASSERT_TRUE(one.isSubsetOf(all));
            ASSERT_TRUE(rest.isSubsetOf(all));
            ASSERT_FALSE(one.isSubsetOf(rest));
            ASSERT_FALSE(all.isSubsetOf(rest));
            ASSERT_FALSE(one.isSubsetOf(none));
        }
    }
}

TEST(BitSet, StaleSupersetCountsAsZeroBeyondItsWords) {
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

TEST(BitSet, UnionIntersectionAndDifferenceGoMemberByMember) {
    for (const int size : WORD_EDGE_SIZES) {
        SCOPED_TRACE(size);
        const OrderedSet<int> universe = numbers(size);
        const BitSet<int> a = setOf(universe, indicesBelow(size, [](int i) { return i % 2 == 0; }));
        const BitSet<int> b = setOf(universe, indicesBelow(size, [](int i) { return i % 3 == 0; }));
        BitSet<int> both(a);
        both.unionWith(b);
        EXPECT_EQ(indicesOf(both),
                  indicesBelow(size, [](int i) { return i % 2 == 0 || i % 3 == 0; }));
        BitSet<int> common(a);
        common.intersectWith(b);
        EXPECT_EQ(indicesOf(common), indicesBelow(size, [](int i) { return i % 6 == 0; }));
        BitSet<int> rest(a);
        rest.subtract(b);
        EXPECT_EQ(indicesOf(rest),
                  indicesBelow(size, [](int i) { return i % 2 == 0 && i % 3 != 0; }));
        EXPECT_EQ(indicesOf(b), indicesBelow(size, [](int i) { return i % 3 == 0; }));
    }
}

TEST(BitSet, WholeSetOperationsGrowBothSetsFirst) {
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

TEST(BitSet, SetMeetingItselfIsHarmless) {
    const OrderedSet<int> universe = numbers(130);
    BitSet<int> set = setOf(universe, {0, 64, 129});
    set.unionWith(set);
    EXPECT_EQ(indicesOf(set), Indices({0, 64, 129}));
    set.intersectWith(set);
    EXPECT_EQ(indicesOf(set), Indices({0, 64, 129}));
    set.subtract(set);
    EXPECT_TRUE(set.isEmpty());
}

TEST(BitSet, ElementSetAndComplementPartTheUniverse) {
    for (const int size : WORD_EDGE_SIZES) {
        SCOPED_TRACE(size);
        const OrderedSet<int> universe = numbers(size);
        const BitSet<int> set =
            setOf(universe, indicesBelow(size, [](int i) { return i % 5 < 2; }));
        std::unordered_set<int> members;
        std::unordered_set<int> others;
        for (int i = 0; i < size; ++i)
            (i % 5 < 2 ? members : others).insert(number(i));
        EXPECT_EQ(set.toElementSet(), members);
        EXPECT_EQ(set.toComplementElementSet(), others);
    }
}

TEST(BitSet, ComplementHoldsElementsAddedToUniverseLater) {
    OrderedSet<int> universe = numbers(1);
    BitSet<int> set(universe);
    set.addAll();
    growTo(universe, 66);
    EXPECT_EQ(set.toComplementElementSet().size(), 65u);
    EXPECT_EQ(set.toComplementElementSet().count(number(65)), 1u);
}

// The bucket order of a hash set is that of insertion where all hashes collide; libstdc++ and
// libc++ both put a new element of an equal bucket at a fixed place relative to the old ones.
struct Colliding {
    int value;
    friend bool operator==(const Colliding& a, const Colliding& b) { return a.value == b.value; }
};

} // namespace
} // namespace zt::orvex::flow

template <>
struct std::hash<zt::orvex::flow::Colliding> {
    std::size_t operator()(const zt::orvex::flow::Colliding&) const { return 0; }
};

namespace zt::orvex::flow {
namespace {

TEST(BitSet, ElementsAreInsertedInAscendingIndexOrder) {
    OrderedSet<Colliding> universe;
    for (int i = 0; i < 70; ++i)
        universe.add(Colliding{i});
    BitSet<Colliding> set(universe);
    std::unordered_set<Colliding> members;
    std::unordered_set<Colliding> others;
    for (int i = 69; i >= 0; --i) {
        if (i % 3 == 0) set.add(Colliding{i});
    }
    for (int i = 0; i < 70; ++i)
        (i % 3 == 0 ? members : others).insert(Colliding{i});
    const auto listed = [](const std::unordered_set<Colliding>& elements) {
        std::vector<int> values;
        for (const Colliding& element : elements)
            values.push_back(element.value);
        return values;
    };
    EXPECT_EQ(listed(set.toElementSet()), listed(members));
    EXPECT_EQ(listed(set.toComplementElementSet()), listed(others));
}

TEST(BitSet, ElementOperationHashesOnce) {
    OrderedSet<Traced> universe;
    for (int i = 0; i < 200; ++i)
        universe.add(Traced(i));
    BitSet<Traced> set(universe);
    const Traced element(150);
    const auto hashesOf = [](auto operation) {
        const int before = Traced::hashes;
        operation();
        return Traced::hashes - before;
    };
    EXPECT_EQ(hashesOf([&] { set.add(element); }), 1);
    EXPECT_EQ(hashesOf([&] { (void)set.contains(element); }), 1);
    EXPECT_EQ(hashesOf([&] { set.remove(element); }), 1);
    EXPECT_EQ(hashesOf([&] { set.addAll(); }), 0);
    EXPECT_EQ(hashesOf([&] { set.getSmallestElement(); }), 0);
}

TEST(BitSet, OperationsByIndexAgreeWithThoseByElement) {
    const OrderedSet<int> universe = numbers(130);
    BitSet<int> set(universe);
    for (const std::uint64_t index : std::vector<std::uint64_t>({0, 63, 64, 129})) {
        EXPECT_FALSE(set.containsIndex(index));
        set.addIndex(index);
        EXPECT_TRUE(set.containsIndex(index));
        EXPECT_TRUE(set.contains(universe.elementAt(index)));
    }
    set.removeIndex(64);
    EXPECT_FALSE(set.contains(number(64)));
    std::vector<std::uint64_t> visited;
    set.forEachIndex([&](std::uint64_t index) { visited.push_back(index); });
    EXPECT_EQ(visited, std::vector<std::uint64_t>({0, 63, 129}));
    EXPECT_EQ(set.findFrom(0), 0u);
    EXPECT_EQ(set.findFrom(1), 63u);
    EXPECT_EQ(set.findFrom(64), 129u);
    EXPECT_EQ(set.findFrom(130), 130u);
    EXPECT_EQ(set.findFrom(std::numeric_limits<std::uint64_t>::max()), 130u);
}

// The value of a variable keeps its words in the pool of its factory; no operation may show it.
TEST(BitSet, WordsInAPoolBehaveAsItsOwn) {
    for (const int added : {0, 1, 64, 130}) {
        SCOPED_TRACE(added);
        OrderedSet<int> universe = numbers(65);
        internal::WordPool pool;
        const BitSet<int> own = setOf(universe, {1, 64});
        BitSet<int> pooled(own, pool);
        BitSet<int> neighbour(own, pool);
        growTo(universe, 65 + added);
        EXPECT_EQ(pooled, own);
        pooled.addAll();
        EXPECT_EQ(indicesOf(neighbour), Indices({1, 64}));
        EXPECT_EQ(indicesOf(pooled), allBelow(65 + added));
        BitSet<int> outside(universe);
        {
            internal::WordPool shortLived;
            const BitSet<int> inside(pooled, shortLived);
            outside = inside;
        }
        EXPECT_EQ(indicesOf(outside), allBelow(65 + added)) << "a copy needs no pool";
        pooled = neighbour;
        neighbour.clear();
        EXPECT_EQ(indicesOf(pooled), Indices({1, 64}));
    }
}

TEST(BitSet, SymbolsAreMembersByHandleAlone) {
    const auto view = [](std::uintptr_t address) {
        return reinterpret_cast<const IAstView*>(address);
    };
    OrderedSet<SymbolView> universe;
    universe.add(SymbolView{1, view(0x10)});
    universe.add(SymbolView{2, view(0x10)});
    BitSet<SymbolView> set(universe);
    set.add(SymbolView{2, view(0x20)});
    EXPECT_TRUE(set.contains(SymbolView{2, nullptr}));
    EXPECT_FALSE(set.contains(SymbolView{1, view(0x10)}));
    EXPECT_EQ(set.getSmallestElement().view, view(0x10)) << "elements are the universe's own";
    const std::unordered_set<SymbolView> members = set.toElementSet();
    EXPECT_EQ(members.size(), 1u);
    EXPECT_EQ(members.count(SymbolView{2, nullptr}), 1u);
}

} // namespace
} // namespace zt::orvex::flow
