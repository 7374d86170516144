#include <zt_orvex/flow/BitSet.h>

#include "flow/ExpectThrows.h"
#include "flow/TestElements.h"
#include "testing/Random.h"

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

TEST(BitSet, MembersAreFoundByIndex) {
    const OrderedSet<int> universe = numbers(130);
    const BitSet<int> set = setOf(universe, {0, 63, 129});
    std::vector<std::uint64_t> visited;
    set.forEachIndex([&](std::uint64_t index) { visited.push_back(index); });
    EXPECT_EQ(visited, std::vector<std::uint64_t>({0, 63, 129}));
    EXPECT_EQ(set.findFrom(0), 0u);
    EXPECT_EQ(set.findFrom(1), 63u);
    EXPECT_EQ(set.findFrom(64), 129u);
    EXPECT_EQ(set.findFrom(130), 130u);
    EXPECT_EQ(set.findFrom(std::numeric_limits<std::uint64_t>::max()), 130u);
}

// 140,000 elements fill more than two of the chunks in which members are looked for.
TEST(BitSet, VisitsExactlyTheMembersOfALargeSet) {
    constexpr int SIZE = 140000;
    const OrderedSet<int> universe = numbers(SIZE);
    testing::Random random(7);
    for (const unsigned oneIn : {2u, 50u, 3000u}) {
        BitSet<int> set(universe);
        std::vector<std::uint64_t> expected;
        for (int i = 0; i < SIZE; ++i) {
            if (!random.oneIn(oneIn)) continue;
            set.add(number(i));
            expected.push_back(static_cast<std::uint64_t>(i));
        }
        std::vector<std::uint64_t> visited;
        set.forEachIndex([&](std::uint64_t index) { visited.push_back(index); });
        EXPECT_EQ(visited, expected) << "one in " << oneIn;
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
