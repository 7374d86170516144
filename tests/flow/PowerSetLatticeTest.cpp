#include <zt_orvex/flow/PowerSetLattice.h>

#include "flow/TestElements.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace zt::orvex::flow {
namespace {

using Indices = std::set<int>;
using Set = BitSet<int>;

TEST(PowerSetLattice, IsALatticeOfBitSets) {
    static_assert(std::is_base_of_v<Lattice<BitSet<int>>, PowerSetLattice<int>>);
    EXPECT_EQ(sizeof(PowerSetLattice<int>), 2 * sizeof(void*)) << "one field, the universe";
}

TEST(PowerSetLattice, BottomIsTheEmptySetOverTheUniverseOfNow) {
    OrderedSet<int> universe = numbers(3);
    const PowerSetLattice<int> lattice(universe);
    EXPECT_EQ(lattice.bottom().bitCount(), 3u);
    EXPECT_TRUE(lattice.bottom().isEmpty());
    growTo(universe, 70);
    EXPECT_EQ(lattice.bottom().bitCount(), 70u);
    EXPECT_TRUE(lattice.bottom().isEmpty());
}

TEST(PowerSetLattice, OrderIsInclusion) {
    const OrderedSet<int> universe = numbers(130);
    const PowerSetLattice<int> lattice(universe);
    const Set none(universe);
    const Set a = setOf(universe, {0, 129});
    const Set ab = setOf(universe, {0, 64, 129});
    EXPECT_TRUE(lattice.isLessOrEqual(none, none));
    EXPECT_TRUE(lattice.isLessOrEqual(none, a));
    EXPECT_TRUE(lattice.isLessOrEqual(a, a));
    EXPECT_TRUE(lattice.isLessOrEqual(a, ab));
    EXPECT_FALSE(lattice.isLessOrEqual(ab, a));
    EXPECT_FALSE(lattice.isLessOrEqual(a, none));
}

TEST(PowerSetLattice, SetToBottomEmptiesAnExistingValue) {
    const OrderedSet<int> universe = numbers(65);
    const PowerSetLattice<int> lattice(universe);
    Set value = setOf(universe, {0, 64});
    lattice.setToBottom(value);
    EXPECT_TRUE(value.isEmpty());
}

TEST(PowerSetLattice, JoinIsUnionMeetIsIntersectionMinusIsDifference) {
    for (const int size : WORD_EDGE_SIZES) {
        SCOPED_TRACE(size);
        const OrderedSet<int> universe = numbers(size);
        const PowerSetLattice<int> lattice(universe);
        const auto even = [](int i) { return i % 2 == 0; };
        const auto third = [](int i) { return i % 3 == 0; };
        const Set a = setOf(universe, indicesBelow(size, even));
        const Set b = setOf(universe, indicesBelow(size, third));
        Set value(a);
        lattice.joinInto(value, b);
        EXPECT_EQ(indicesOf(value), indicesBelow(size, [=](int i) { return even(i) || third(i); }));
        lattice.assign(value, a);
        EXPECT_EQ(value, a);
        lattice.meetInto(value, b);
        EXPECT_EQ(indicesOf(value), indicesBelow(size, [=](int i) { return even(i) && third(i); }));
        lattice.assign(value, a);
        lattice.minusInto(value, b);
        EXPECT_EQ(indicesOf(value),
                  indicesBelow(size, [=](int i) { return even(i) && !third(i); }));
    }
}

TEST(PowerSetLattice, OverEmptyUniverseDoesNothing) {
    const OrderedSet<int> universe;
    const PowerSetLattice<int> lattice(universe);
    Set a = lattice.bottom();
    const Set b = lattice.bottom();
    EXPECT_TRUE(lattice.isLessOrEqual(a, b));
    lattice.setToBottom(a);
    lattice.assign(a, b);
    lattice.joinInto(a, b);
    lattice.meetInto(a, b);
    lattice.minusInto(a, b);
    EXPECT_TRUE(a.isEmpty());
    EXPECT_EQ(a.bitCount(), 0u);
    EXPECT_TRUE(lattice.isLessOrEqual(a, a));
}

TEST(PowerSetLattice, ValueMeetingItselfIsHarmless) {
    for (const int size : {1, 64, 65, 130}) {
        SCOPED_TRACE(size);
        const OrderedSet<int> universe = numbers(size);
        const PowerSetLattice<int> lattice(universe);
        const Indices members = indicesBelow(size, [](int i) { return i % 3 == 0; });
        Set x = setOf(universe, members);
        lattice.assign(x, x);
        EXPECT_EQ(indicesOf(x), members);
        lattice.joinInto(x, x);
        EXPECT_EQ(indicesOf(x), members);
        lattice.meetInto(x, x);
        EXPECT_EQ(indicesOf(x), members);
        EXPECT_TRUE(lattice.isLessOrEqual(x, x));
        lattice.minusInto(x, x);
        EXPECT_TRUE(x.isEmpty());
    }
}

TEST(PowerSetLattice, EachOperationGrowsTheValuesOfItsRowAndNoOthers) {
    struct Row {
        const char* name;
        std::function<void(const PowerSetLattice<int>&, Set&, Set&)> run;
        bool firstGrows;
        bool secondGrows;
    };
    using L = PowerSetLattice<int>;
    const std::vector<Row> rows = {
        {"isLessOrEqual", [](const L& l, Set& a, Set& b) { (void)l.isLessOrEqual(a, b); }, true,
         false},
        {"setToBottom", [](const L& l, Set& a, Set&) { l.setToBottom(a); }, true, false},
        {"assign", [](const L& l, Set& a, Set& b) { l.assign(a, b); }, false, false},
        {"joinInto", [](const L& l, Set& a, Set& b) { l.joinInto(a, b); }, true, true},
        {"meetInto", [](const L& l, Set& a, Set& b) { l.meetInto(a, b); }, true, true},
        {"minusInto", [](const L& l, Set& a, Set& b) { l.minusInto(a, b); }, true, true},
    };
    constexpr std::pair<int, int> GROWTHS[] = {{2, 3}, {2, 64}, {2, 65}, {64, 65}, {65, 300}};
    for (const auto& [before, after] : GROWTHS) {
        for (const Row& row : rows) {
            SCOPED_TRACE(row.name);
            OrderedSet<int> universe = numbers(before);
            const PowerSetLattice<int> lattice(universe);
            Set a = setOf(universe, {1});
            Set b = setOf(universe, {0, 1});
            growTo(universe, after);
            row.run(lattice, a, b);
            EXPECT_EQ(a.bitCount(), static_cast<std::uint64_t>(row.firstGrows ? after : before));
            EXPECT_EQ(b.bitCount(), static_cast<std::uint64_t>(row.secondGrows ? after : before));
        }
    }
}

TEST(PowerSetLattice, AssignTakesTheSourcesSizeBothWays) {
    for (const int size : WORD_EDGE_SIZES) {
        for (const int added : {0, 1, 64, 130}) {
            SCOPED_TRACE(std::to_string(size) + " and " + std::to_string(added));
            OrderedSet<int> universe = numbers(size);
            const PowerSetLattice<int> lattice(universe);
            Set stale(universe);
            stale.addAll();
            Set staleTarget = lattice.bottom();
            growTo(universe, size + added);
            Set fresh(universe);
            fresh.addAll();
            Set freshTarget(fresh);

            lattice.assign(freshTarget, stale);
            ASSERT_EQ(freshTarget.bitCount(), static_cast<std::uint64_t>(size));
            ASSERT_EQ(stale.bitCount(), static_cast<std::uint64_t>(size));
            ASSERT_EQ(indicesOf(freshTarget), allBelow(size))
                << "what the target held beyond the source must not come back when it grows";

            lattice.assign(staleTarget, fresh);
            ASSERT_EQ(staleTarget.bitCount(), static_cast<std::uint64_t>(size + added));
            ASSERT_EQ(indicesOf(staleTarget), allBelow(size + added))
                << "too small an array is replaced";
            staleTarget.clear();
            ASSERT_EQ(indicesOf(fresh), allBelow(size + added));
        }
    }
}

} // namespace
} // namespace zt::orvex::flow
