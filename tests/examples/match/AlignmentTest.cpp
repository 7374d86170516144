#include "match/Alignment.h"

#include "testing/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace ostrel::testing {

namespace {

using Numbers = std::vector<std::uint32_t>;

constexpr std::size_t NONE = AlignedPair::NONE;

int allAlike(std::size_t, std::size_t) { return 1; }

std::vector<AlignedPair> aligned(const Numbers& a, const Numbers& b) {
    return align(a, b, allAlike);
}

/// Pairs as "first-second", with a blank where an element has no counterpart.
std::string shown(const std::vector<AlignedPair>& pairs) {
    std::string text;
    for (const AlignedPair& pair : pairs) {
        text += text.empty() ? "" : " ";
        text += (pair.first == NONE ? "" : std::to_string(pair.first)) + "-" +
                (pair.second == NONE ? "" : std::to_string(pair.second));
    }
    return text;
}

std::size_t equalPairs(const Numbers& a, const Numbers& b, const std::vector<AlignedPair>& pairs) {
    return static_cast<std::size_t>(
        std::count_if(pairs.begin(), pairs.end(), [&](const AlignedPair& pair) {
            return pair.first != NONE && pair.second != NONE && a[pair.first] == b[pair.second];
        }));
}

/// The length of a longest common subsequence, by the textbook.
std::size_t longestCommon(const Numbers& a, const Numbers& b) {
    std::vector<std::vector<std::size_t>> table(a.size() + 1,
                                                std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 1; i <= a.size(); ++i) {
        for (std::size_t j = 1; j <= b.size(); ++j) {
            table[i][j] = a[i - 1] == b[j - 1] ? table[i - 1][j - 1] + 1
                                               : std::max(table[i - 1][j], table[i][j - 1]);
        }
    }
    return table[a.size()][b.size()];
}

/// Whether each element occurs once, in order.
bool isComplete(const std::vector<AlignedPair>& pairs, std::size_t first, std::size_t second) {
    std::size_t nextFirst = 0;
    std::size_t nextSecond = 0;
    for (const AlignedPair& pair : pairs) {
        if (pair.first == NONE && pair.second == NONE) return false;
        if (pair.first != NONE && pair.first != nextFirst++) return false;
        if (pair.second != NONE && pair.second != nextSecond++) return false;
    }
    return nextFirst == first && nextSecond == second;
}

} // namespace

TEST(Alignment, EqualSequencesArePairedInOrder) {
    EXPECT_EQ(shown(aligned({}, {})), "");
    EXPECT_EQ(shown(aligned({5, 5, 6}, {5, 5, 6})), "0-0 1-1 2-2");
}

TEST(Alignment, InsertedAndRemovedElementsStayAlone) {
    EXPECT_EQ(shown(aligned({1, 2}, {1, 9, 2})), "0-0 -1 1-2");
    EXPECT_EQ(shown(aligned({1, 9, 2}, {1, 2})), "0-0 1- 2-1");
    EXPECT_EQ(shown(aligned({}, {7, 8})), "-0 -1");
    EXPECT_EQ(shown(aligned({7, 7}, {7, 7, 7})), "0-0 1-1 -2");
}

TEST(Alignment, ChangedElementsArePairedBetweenEqualOnes) {
    EXPECT_EQ(shown(aligned({1, 2, 3}, {1, 9, 3})), "0-0 1-1 2-2");
    EXPECT_EQ(shown(aligned({1, 2, 3, 4}, {5, 6, 7, 8})), "0-0 1-1 2-2 3-3");
}

TEST(Alignment, LikenessDecidesWhichElementStaysAlone) {
    const auto lastIsAlike = [](std::size_t, std::size_t second) { return second == 1 ? 10 : 1; };
    EXPECT_EQ(shown(align({1}, {8, 9}, lastIsAlike)), "-0 0-1");
    const auto firstIsAlike = [](std::size_t, std::size_t second) { return second == 0 ? 10 : 1; };
    EXPECT_EQ(shown(align({1}, {8, 9}, firstIsAlike)), "0-0 -1");
}

TEST(Alignment, EqualElementsCountMoreThanAnyNumberOfLikeOnes) {
    Numbers first{1};
    Numbers second;
    for (std::uint32_t i = 0; i < 200; ++i) {
        first.push_back(1000 + i);
        second.push_back(2000 + i);
    }
    second.push_back(1);
    const auto mostAlike = [](std::size_t, std::size_t) { return MAX_LIKENESS; };
    EXPECT_EQ(equalPairs(first, second, align(first, second, mostAlike)), 1u);
}

TEST(Alignment, ShortSequencesHaveALongestCommonSubsequence) {
    zt::orvex::testing::Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t round = zt::orvex::testing::rounds(3000); round > 0; --round) {
        const auto sequence = [&] {
            Numbers numbers;
            for (std::size_t i = random.below(12); i > 0; --i)
                numbers.push_back(static_cast<std::uint32_t>(random.below(5)));
            return numbers;
        };
        const Numbers a = sequence();
        const Numbers b = sequence();
        const auto pairs = aligned(a, b);
        ASSERT_TRUE(isComplete(pairs, a.size(), b.size())) << shown(pairs);
        ASSERT_EQ(equalPairs(a, b, pairs), longestCommon(a, b)) << shown(pairs);
    }
}

TEST(Alignment, LongSequencesAreCutAtTheirUniqueElements) {
    Numbers a;
    for (std::uint32_t i = 0; i < 200'000; ++i)
        a.push_back(i % 10 == 0 ? 3 : i + 10);
    Numbers b = a;
    b.insert(b.begin() + 150'003, 1);
    b.erase(b.begin() + 70'007);
    b[30'005] = 2;
    const auto pairs = aligned(a, b);
    EXPECT_TRUE(isComplete(pairs, a.size(), b.size()));
    EXPECT_EQ(equalPairs(a, b, pairs), a.size() - 2);
}

TEST(Alignment, LongSequencesWithNothingInCommonTakeLinearTime) {
    // In quadratic time, the test would hang.
    const auto pairs = aligned(Numbers(300'000, 1), Numbers(200'000, 2));
    EXPECT_TRUE(isComplete(pairs, 300'000, 200'000));
    EXPECT_EQ(pairs.size(), 300'000u);
}

} // namespace ostrel::testing
