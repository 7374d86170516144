#include <zt_orvex/flow/OrderedSet.h>

#include "flow/ExpectThrows.h"
#include "flow/TestElements.h"
#include "testing/Random.h"

#include <zt_orvex/ast/IAstView.h>
#include <zt_orvex/ast/SymbolView.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace zt::orvex::flow {
namespace {

using testing::expectThrows;
using testing::Random;
using testing::rounds;

const IAstView* viewAt(std::uintptr_t address) {
    return reinterpret_cast<const IAstView*>(address);
}

TEST(OrderedSet, StartsEmpty) {
    const OrderedSet<int> set;
    EXPECT_EQ(set.size(), 0u);
    EXPECT_FALSE(set.contains(0));
}

TEST(OrderedSet, NumbersElementsInOrderOfFirstInsertion) {
    OrderedSet<std::string> set;
    EXPECT_EQ(set.add("n"), 0u);
    EXPECT_EQ(set.add("a"), 1u);
    EXPECT_EQ(set.add("m"), 2u);
    EXPECT_EQ(set.size(), 3u);
    EXPECT_EQ(set.elementAt(0), "n");
    EXPECT_EQ(set.elementAt(1), "a");
    EXPECT_EQ(set.elementAt(2), "m");
}

TEST(OrderedSet, AddOfKnownElementGivesItsIndexAndChangesNothing) {
    OrderedSet<std::string> set;
    set.add("a");
    set.add("b");
    EXPECT_EQ(set.add("a"), 0u);
    EXPECT_EQ(set.add("b"), 1u);
    EXPECT_EQ(set.size(), 2u);
    EXPECT_EQ(set.add("c"), 2u);
}

TEST(OrderedSet, DuplicatesInListKeepTheirFirstPlace) {
    const OrderedSet<int> set({7, 9, 7, 8, 9, 7});
    ASSERT_EQ(set.size(), 3u);
    EXPECT_EQ(set.elementAt(0), 7);
    EXPECT_EQ(set.elementAt(1), 9);
    EXPECT_EQ(set.elementAt(2), 8);
    EXPECT_EQ(set.indexOf(8), 2u);
}

TEST(OrderedSet, ContainsExactlyWhatWasAdded) {
    const OrderedSet<int> set({7, 9});
    EXPECT_TRUE(set.contains(7));
    EXPECT_TRUE(set.contains(9));
    EXPECT_FALSE(set.contains(8));
    EXPECT_FALSE(set.contains(0));
    EXPECT_FALSE(set.contains(1));
}

TEST(OrderedSet, IndexLeadsBackToElement) {
    const OrderedSet<int> set = numbers(1000);
    for (std::uint64_t i = 0; i < 1000; ++i) {
        EXPECT_EQ(set.elementAt(i), number(static_cast<int>(i)));
        EXPECT_EQ(set.indexOf(set.elementAt(i)), i);
    }
}

TEST(OrderedSet, IndexOfUnknownElementIsAnError) {
    OrderedSet<int> set;
    expectThrows<std::invalid_argument>([&] { set.indexOf(1); }, "element not found");
    set.add(7);
    expectThrows<std::invalid_argument>([&] { set.indexOf(0); }, "element not found");
    EXPECT_EQ(set.size(), 1u);
    EXPECT_FALSE(set.contains(0));
}

TEST(OrderedSet, IndexIsSixtyFourBitsWide) {
    OrderedSet<int> set;
    static_assert(std::is_same_v<decltype(set.add(1)), std::uint64_t>);
    static_assert(std::is_same_v<decltype(set.indexOf(1)), std::uint64_t>);
}

TEST(OrderedSet, ElementAtGivesTheStoredElementItself) {
    const OrderedSet<std::string> set({"a", "b"});
    static_assert(std::is_same_v<decltype(set.elementAt(0)), const std::string&>);
    EXPECT_EQ(&set.elementAt(1), &set.elementAt(1));
    EXPECT_NE(&set.elementAt(0), &set.elementAt(1));
}

TEST(OrderedSet, IndexOrSizeAnswersForUnknownElementsToo) {
    OrderedSet<int> set({7, 9});
    EXPECT_EQ(set.indexOrSize(9), 1u);
    EXPECT_EQ(set.indexOrSize(8), 2u);
    set.add(8);
    EXPECT_EQ(set.indexOrSize(8), 2u);
    EXPECT_EQ(set.indexOrSize(10), 3u);
}

TEST(OrderedSet, IteratesInOrderOfIndex) {
    const OrderedSet<int> set({7, 9, 7, 8});
    EXPECT_EQ(std::vector<int>(set.begin(), set.end()), std::vector<int>({7, 9, 8}));
    const std::vector<int> list = {5, 4, 5};
    const OrderedSet<int> fromRange(list.begin(), list.end());
    EXPECT_EQ(std::vector<int>(fromRange.begin(), fromRange.end()), std::vector<int>({5, 4}));
}

TEST(OrderedSet, ReservingChangesNothingThatCanBeSeen) {
    OrderedSet<int> set({7, 9});
    set.reserve(1000);
    EXPECT_EQ(set.size(), 2u);
    EXPECT_EQ(set.indexOf(9), 1u);
    EXPECT_EQ(set.add(3), 2u);
}

TEST(OrderedSet, CopyIsIndependent) {
    OrderedSet<std::string> original({"a"});
    OrderedSet<std::string> copy = original;
    copy.add("b");
    original.add("c");
    EXPECT_EQ(copy.indexOf("b"), 1u);
    EXPECT_FALSE(copy.contains("c"));
    EXPECT_EQ(original.indexOf("c"), 1u);
    EXPECT_FALSE(original.contains("b"));
}

TEST(OrderedSet, SymbolsAreKnownByHandleAlone) {
    OrderedSet<SymbolView> set;
    EXPECT_EQ(set.add(SymbolView{5, viewAt(0x10)}), 0u);
    EXPECT_EQ(set.add(SymbolView{5, viewAt(0x20)}), 0u);
    EXPECT_EQ(set.size(), 1u);
    EXPECT_TRUE(set.contains(SymbolView{5, nullptr}));
    EXPECT_FALSE(set.contains(SymbolView{6, viewAt(0x10)}));
    EXPECT_EQ(set.elementAt(0).view, viewAt(0x10)) << "the first insertion stays";
}

TEST(OrderedSet, HoldsPointersByAddress) {
    const int values[] = {1, 1};
    OrderedSet<const int*> set;
    EXPECT_EQ(set.add(&values[0]), 0u);
    EXPECT_EQ(set.add(&values[1]), 1u);
    EXPECT_EQ(set.add(&values[0]), 0u);
    EXPECT_FALSE(set.contains(nullptr));
}

// The expected values come from the published definition of 64-bit FNV-1a, least significant byte
// first, worked out apart from this code base.
TEST(OrderedSet, SymbolsHashByFnv1aOfTheHandle) {
    const std::hash<SymbolView> hash;
    EXPECT_EQ(hash(SymbolView{0, nullptr}), 0xa8c7f832281a39c5);
    EXPECT_EQ(hash(SymbolView{1, viewAt(0x20)}), 0x89cd31291d2aefa4);
    EXPECT_EQ(hash(SymbolView{0x0123456789abcdef, nullptr}), 0x37eb3f3347761c55);
}

TEST(OrderedSet, FailedAddLeavesTheSetAsItWas) {
    for (int failing = 1; failing <= 8; ++failing) {
        SCOPED_TRACE(failing);
        OrderedSet<Traced> set;
        set.add(Traced(3));
        bool failed = false;
        Traced::failingCopy = failing;
        try {
            set.add(Traced(4));
        } catch (const std::runtime_error&) {
            failed = true;
        }
        Traced::failingCopy = 0;
        ASSERT_TRUE(failed || failing > 1) << "adding copies at least once";
        ASSERT_EQ(set.contains(Traced(4)), !failed);
        ASSERT_EQ(set.size(), failed ? 1u : 2u);
        ASSERT_EQ(set.elementAt(0), Traced(3));
        EXPECT_EQ(set.add(Traced(4)), 1u);
        EXPECT_EQ(set.elementAt(1), Traced(4));
    }
}

TEST(OrderedSet, AgreesWithPlainMapUnderRandomInsertion) {
    Random random;
    SCOPED_TRACE(random.describe());
    OrderedSet<std::string> set;
    std::map<std::string, std::uint64_t> indices;
    std::vector<std::string> elements;
    for (std::size_t step = 0; step < rounds(20000); ++step) {
        const std::string element = std::to_string(random.below(3000));
        if (random.oneIn(2)) {
            const bool isNew = indices.emplace(element, elements.size()).second;
            if (isNew) elements.push_back(element);
            ASSERT_EQ(set.add(element), indices.at(element));
        } else if (indices.count(element) != 0) {
            ASSERT_TRUE(set.contains(element));
            ASSERT_EQ(set.indexOf(element), indices.at(element));
        } else {
            ASSERT_FALSE(set.contains(element));
            EXPECT_THROW(set.indexOf(element), std::invalid_argument);
        }
        ASSERT_EQ(set.size(), elements.size());
    }
    for (std::size_t i = 0; i < elements.size(); ++i)
        ASSERT_EQ(set.elementAt(i), elements[i]);
}

} // namespace
} // namespace zt::orvex::flow
