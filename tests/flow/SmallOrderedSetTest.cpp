#include <zt_orvex/flow/SmallOrderedSet.h>

#include "testing/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace zt::orvex::flow {
namespace {

using Elements = std::vector<int>;

Elements elementsOf(const SmallOrderedSet<int>& set) { return {set.begin(), set.end()}; }

SmallOrderedSet<int> setFrom(int first, int count) {
    SmallOrderedSet<int> set;
    for (int i = 0; i < count; ++i)
        set.insert(first + i);
    return set;
}

TEST(SmallOrderedSet, KeepsTheOrderOfFirstInsertion) {
    SmallOrderedSet<int> set;
    Elements expected;
    for (const int element : {7, 3, 7, 9, 3, 1, 4, 9, 0, 7}) {
        set.insert(element);
        if (std::find(expected.begin(), expected.end(), element) == expected.end()) {
            expected.push_back(element);
        }
        EXPECT_EQ(elementsOf(set), expected);
    }
}

TEST(SmallOrderedSet, ContainsWhatWasInsertedInPlaceAndBeyond) {
    SmallOrderedSet<int> set;
    for (int i = 0; i < 40; ++i) {
        EXPECT_FALSE(set.contains(i)) << i;
        set.insert(i);
        for (int known = 0; known <= i; ++known)
            ASSERT_TRUE(set.contains(known)) << known << " of " << i;
    }
}

TEST(SmallOrderedSet, ClearedSetCanBeFilledAgain) {
    for (const int count : {3, 4, 5, 100}) {
        SmallOrderedSet<int> set = setFrom(0, count);
        set.clear();
        EXPECT_TRUE(set.empty());
        EXPECT_FALSE(set.contains(0));
        set.insertAll(Elements({5, 4, 3, 2, 1}));
        EXPECT_EQ(elementsOf(set), Elements({5, 4, 3, 2, 1}));
        EXPECT_FALSE(set.contains(0)) << "nothing is left of the index";
    }
}

TEST(SmallOrderedSet, MergeKeepsAllAndEmptiesTheOther) {
    for (const int mine : {0, 1, 4, 5, 20}) {
        for (const int others : {0, 1, 4, 5, 20}) {
            SmallOrderedSet<int> set = setFrom(0, mine);
            SmallOrderedSet<int> other = setFrom(100, others);
            set.merge(other);
            EXPECT_TRUE(other.empty());
            EXPECT_FALSE(other.contains(100));
            Elements merged = elementsOf(set);
            const bool isSwapped = others > mine;
            EXPECT_TRUE(merged.empty() || merged.front() == (isSwapped ? 100 : 0))
                << "the larger comes first";
            std::sort(merged.begin(), merged.end());
            Elements expected = elementsOf(setFrom(0, mine));
            for (const int element : elementsOf(setFrom(100, others)))
                expected.push_back(element);
            EXPECT_EQ(merged, expected);
            for (const int element : expected)
                EXPECT_TRUE(set.contains(element));
        }
    }
}

TEST(SmallOrderedSet, MergedElementsOfBothStandOnce) {
    SmallOrderedSet<int> set = setFrom(0, 6);
    SmallOrderedSet<int> other = setFrom(3, 6);
    set.merge(other);
    EXPECT_EQ(elementsOf(set), Elements({0, 1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(SmallOrderedSet, MergeWithItselfLosesNothing) {
    for (const int count : {0, 3, 9}) {
        SmallOrderedSet<int> set = setFrom(0, count);
        set.merge(set);
        EXPECT_EQ(elementsOf(set), elementsOf(setFrom(0, count)));
    }
}

TEST(SmallOrderedSet, AgreesWithPlainVectorUnderRandomCommands) {
    testing::Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t game = 0; game < testing::rounds(300); ++game) {
        SmallOrderedSet<int> set;
        Elements model;
        for (int step = 0; step < 60; ++step) {
            const int element = static_cast<int>(random.below(12));
            const bool known = std::find(model.begin(), model.end(), element) != model.end();
            ASSERT_EQ(set.contains(element), known);
            if (random.oneIn(20)) {
                set.clear();
                model.clear();
            } else {
                set.insert(element);
                if (!known) model.push_back(element);
            }
            ASSERT_EQ(elementsOf(set), model);
            ASSERT_EQ(set.size(), model.size());
        }
    }
}

} // namespace
} // namespace zt::orvex::flow
