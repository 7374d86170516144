#include <zt_orvex/flow/internal/WordLoops.h>

#include "testing/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace zt::orvex::flow::internal {
namespace {

using testing::Random;
using Words = std::vector<std::uint64_t>;

// Around each length at which a loop changes its step, and one that is longer than a chunk.
const std::size_t LENGTHS[] = {0,   1,   2,    3,    4,    5,    7,    8,    15,   16,   17,  19,
                               31,  32,  63,   64,   65,   67,   79,   80,   127,  128,  129, 191,
                               192, 500, 1023, 1024, 1025, 1087, 1088, 2048, 2049, 2188, 3200};

/// Words of which about one in `oneIn` is not zero.
Words randomWords(Random& random, std::size_t length, unsigned oneIn) {
    Words words(length);
    for (std::uint64_t& word : words) {
        if (random.oneIn(oneIn)) word = random.next() & random.next();
    }
    return words;
}

/// The lowest bit of a word alone, or no bit of none.
std::uint64_t lowestOf(std::uint64_t word) { return word & (~word + 1); }

using PlainOperation = std::uint64_t (*)(std::uint64_t, std::uint64_t);

/// Two random arrays, and what an operation on each word makes of them.
struct Example {
    Example(Random& random, std::size_t length, PlainOperation plain)
        : words(randomWords(random, length, 1)), others(randomWords(random, length, 1)) {
        for (std::size_t i = 0; i < length; ++i)
            expected.push_back(plain(words[i], others[i]));
    }

    Words words;
    Words others;
    Words expected;
};

template <typename Operation>
void expectCombines(PlainOperation plain) {
    Random random(1);
    for (const std::size_t length : LENGTHS) {
        const auto [words, others, expected] = Example(random, length, plain);

        Words result = words;
        combineWords<Operation>(result.data(), others.data(), length);
        EXPECT_EQ(result, expected) << length;

        result = words;
        CombineLoop<Operation>::template run<std::uint64_t>(result.data(), others.data(), length);
        EXPECT_EQ(result, expected) << length << " word by word";
    }
}

std::uint64_t unionOf(std::uint64_t a, std::uint64_t b) { return a | b; }
std::uint64_t intersectionOf(std::uint64_t a, std::uint64_t b) { return a & b; }
std::uint64_t differenceOf(std::uint64_t a, std::uint64_t b) { return a & ~b; }

TEST(WordLoops, WordsAreCombinedOneByOne) {
    expectCombines<Union>(unionOf);
    expectCombines<Intersection>(intersectionOf);
    expectCombines<Difference>(differenceOf);
}

TEST(WordLoops, ArrayCombinesWithItself) {
    for (const std::size_t length : LENGTHS) {
        Words words(length, 5);
        combineWords<Union>(words.data(), words.data(), length);
        EXPECT_EQ(words, Words(length, 5));
        combineWords<Difference>(words.data(), words.data(), length);
        EXPECT_EQ(words, Words(length, 0));
    }
}

TEST(WordLoops, BlocksBeginAtAnyWord) {
    Random random(1);
    const Words source = randomWords(random, 4000, 2);
    for (const std::size_t length : LENGTHS) {
        for (std::size_t first = 0; first < WORDS_IN<WordBlock>; ++first) {
            Words target(source.size());
            std::uint64_t* const words = target.data() + first;
            combineWords<Union>(words, source.data() + 1, length);
            EXPECT_TRUE(areEqual(words, source.data() + 1, length)) << first;
            EXPECT_TRUE(areContained(source.data() + 1, words, length)) << first;
            copyWords(words, source.data(), length);
            EXPECT_TRUE(std::equal(words, words + length, source.begin())) << first;
        }
    }
}

TEST(WordLoops, BitAnywhereInABlockIsSeen) {
    for (const std::size_t bit : {0u, 63u, 64u, 127u, 128u, 191u, 192u, 255u}) {
        std::uint64_t words[WORDS_IN<WordBlock>] = {};
        words[bit / 64] = std::uint64_t{1} << (bit % 64);
        WordBlock block;
        load(block, words);
        EXPECT_TRUE(hasBits(block)) << bit;
        std::uint64_t stored[WORDS_IN<WordBlock>] = {};
        store(stored, block);
        EXPECT_TRUE(std::equal(words, words + WORDS_IN<WordBlock>, stored)) << bit;
    }
    EXPECT_FALSE(hasBits(WordBlock{}));
    EXPECT_FALSE(hasBits(std::uint64_t{0}));
    EXPECT_TRUE(hasBits(std::uint64_t{1} << 63));
}

TEST(WordLoops, CopyEqualsItsSourceUntilAnyBitChanges) {
    Random random(5);
    for (const std::size_t length : LENGTHS) {
        const Words source = randomWords(random, length, 1);
        Words copy(length);
        copyWords(copy.data(), source.data(), length);
        EXPECT_TRUE(areEqual(copy.data(), source.data(), length)) << length;
        EXPECT_EQ(copy, source);
        for (std::size_t i = 0; i < length; ++i) {
            copy[i] ^= std::uint64_t{1} << (random.next() % 64);
            ASSERT_FALSE(areEqual(copy.data(), source.data(), length)) << length << ", word " << i;
            copy[i] = source[i];
        }
    }
}

TEST(WordLoops, OneBitTooManyAnywhereIsNoSubset) {
    Random random(2);
    for (const std::size_t length : LENGTHS) {
        const Words allowed = randomWords(random, length, 1);
        Words words = allowed;
        for (std::uint64_t& word : words)
            word &= random.next();
        const auto isSubset = [&] {
            const bool wide =
                runLoop<SubsetLoop>(length, std::as_const(words).data(), allowed.data());
            EXPECT_EQ(SubsetLoop::run<std::uint64_t>(words.data(), allowed.data(), length), wide)
                << length;
            return wide;
        };
        EXPECT_TRUE(isSubset()) << length;
        for (std::size_t i = 0; i < length; ++i) {
            const std::uint64_t before = words[i];
            words[i] |= lowestOf(~allowed[i]);
            ASSERT_EQ(isSubset(), words[i] == before) << length << ", word " << i;
            words[i] = before;
        }
    }
}

TEST(WordLoops, EachUsedWordIsVisitedInOrder) {
    using Visits = std::vector<std::pair<std::uint64_t, std::uint64_t>>;
    Random random(3);
    for (const std::size_t length : LENGTHS) {
        for (const unsigned oneIn : {1u, 2u, 20u, 1000u}) {
            const Words words = randomWords(random, length, oneIn);
            Visits expected;
            for (std::size_t i = 0; i < length; ++i) {
                if (words[i] != 0) expected.emplace_back(i, words[i]);
            }
            Visits visits;
            forEachUsedWord(words.data(), length, [&](std::uint64_t number, std::uint64_t word) {
                visits.emplace_back(number, word);
            });
            EXPECT_EQ(visits, expected) << length << ", one in " << oneIn;
        }
    }
}

TEST(WordLoops, MasksAreTheSameWordByWord) {
    Random random(4);
    for (const std::size_t length : LENGTHS) {
        const Words words = randomWords(random, length, 3);
        Words wide((length + 63) / 64);
        Words narrow(wide.size());
        runLoop<UsedWordsLoop>(length, words.data(), wide.data());
        UsedWordsLoop::run<std::uint64_t>(words.data(), narrow.data(), length);
        EXPECT_EQ(wide, narrow) << length;
    }
}

} // namespace
} // namespace zt::orvex::flow::internal
