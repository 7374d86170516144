#include <zt_orvex/flow/WordLoops.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <utility>
#include <vector>

namespace zt::orvex::flow::internal {
namespace {

using Words = std::vector<std::uint64_t>;

// Around each length at which a loop changes its step, and one that is longer than a chunk.
const std::size_t LENGTHS[] = {0,   1,   2,   3,   4,    5,    7,    8,    15,   16,   17,
                               19,  31,  32,  63,  64,   65,   67,   79,   80,   127,  128,
                               129, 191, 192, 500, 1023, 1024, 1025, 1087, 1088, 2048, 2049};

/// Words of which about one in `oneIn` is not zero.
Words randomWords(std::mt19937_64& random, std::size_t length, unsigned oneIn) {
    Words words(length);
    for (std::uint64_t& word : words) {
        if (random() % oneIn == 0) word = random() & random();
    }
    return words;
}

/// The lowest bit of a word alone, or no bit of none.
std::uint64_t lowestOf(std::uint64_t word) { return word & (~word + 1); }

using PlainOperation = std::uint64_t (*)(std::uint64_t, std::uint64_t);

/// Two random arrays, and what an operation on each word makes of them.
struct Example {
    Example(std::mt19937_64& random, std::size_t length, PlainOperation plain)
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
    std::mt19937_64 random(1);
    for (const std::size_t length : LENGTHS) {
        const auto [words, others, expected] = Example(random, length, plain);

        Words result(length);
        runLoop<CombineLoop<Operation>>(length, result.data(), words.data(), others.data());
        EXPECT_EQ(result, expected) << length;

        result = words;
        CombineLoop<Operation>::run(result.data(), result.data(), others.data(), length);
        EXPECT_EQ(result, expected) << length << " in narrow registers";

        result = words;
        runLoop<CombineInPlaceLoop<Operation>>(length, result.data(), others.data());
        EXPECT_EQ(result, expected) << length << " in place";

        result = others;
        runLoop<CombineLoop<Operation>>(length, result.data(), words.data(), result.data());
        EXPECT_EQ(result, expected) << length << " in the place of the second";
    }
}

template <typename Operation>
void expectTellsChanges(PlainOperation plain) {
    std::mt19937_64 random(5);
    for (const std::size_t length : LENGTHS) {
        const Example example(random, length, plain);
        Words previous = example.expected;
        const auto differs = [&] {
            Words result(length);
            const bool wide =
                runLoop<ChangeLoop<Operation>>(length, result.data(), example.words.data(),
                                               example.others.data(), previous.data());
            EXPECT_EQ(result, example.expected) << length;
            result = example.words;
            EXPECT_EQ(ChangeLoop<Operation>::run(result.data(), result.data(),
                                                 example.others.data(), previous.data(), length),
                      wide);
            EXPECT_EQ(result, example.expected) << length << " in place, in narrow registers";
            return wide;
        };
        EXPECT_FALSE(differs()) << length;
        for (std::size_t i = 0; i < length; i += 1 + length / 70) {
            previous[i] ^= std::uint64_t{1} << (random() % 64);
            ASSERT_TRUE(differs()) << length << ", word " << i;
            previous[i] = example.expected[i];
        }
    }
}

std::uint64_t unionOf(std::uint64_t a, std::uint64_t b) { return a | b; }
std::uint64_t intersectionOf(std::uint64_t a, std::uint64_t b) { return a & b; }
std::uint64_t differenceOf(std::uint64_t a, std::uint64_t b) { return a & ~b; }
std::uint64_t copyOf(std::uint64_t, std::uint64_t b) { return b; }
std::uint64_t nothingOf(std::uint64_t, std::uint64_t) { return 0; }

TEST(WordLoops, WordsAreCombinedOneByOne) {
    expectCombines<Union>(unionOf);
    expectCombines<Intersection>(intersectionOf);
    expectCombines<Difference>(differenceOf);
    expectCombines<Copy>(copyOf);
    expectCombines<Clear>(nothingOf);
}

TEST(WordLoops, ChangeOfAnyWordIsTold) {
    expectTellsChanges<Union>(unionOf);
    expectTellsChanges<Intersection>(intersectionOf);
    expectTellsChanges<Difference>(differenceOf);
    expectTellsChanges<Copy>(copyOf);
    expectTellsChanges<Clear>(nothingOf);
}

TEST(WordLoops, ArrayCombinesWithItself) {
    for (const std::size_t length : LENGTHS) {
        Words words(length, 5);
        runLoop<CombineLoop<Union>>(length, words.data(), words.data(), words.data());
        EXPECT_EQ(words, Words(length, 5));
        runLoop<CombineLoop<Difference>>(length, words.data(), words.data(), words.data());
        EXPECT_EQ(words, Words(length, 0));
    }
}

TEST(WordLoops, OneBitTooManyAnywhereIsNoSubset) {
    std::mt19937_64 random(2);
    for (const std::size_t length : LENGTHS) {
        const Words allowed = randomWords(random, length, 1);
        Words words = allowed;
        for (std::uint64_t& word : words)
            word &= random();
        const auto isSubset = [&] {
            const bool wide =
                runLoop<SubsetLoop>(length, std::as_const(words).data(), allowed.data());
            EXPECT_EQ(SubsetLoop::run(words.data(), allowed.data(), length), wide) << length;
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
    std::mt19937_64 random(3);
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

TEST(WordLoops, MasksAreTheSameInNarrowRegisters) {
    std::mt19937_64 random(4);
    for (const std::size_t length : LENGTHS) {
        const Words words = randomWords(random, length, 3);
        Words wide((length + 63) / 64);
        Words narrow(wide.size());
        runLoop<UsedWordsLoop>(length, words.data(), wide.data());
        UsedWordsLoop::run(words.data(), narrow.data(), length);
        EXPECT_EQ(wide, narrow) << length;
    }
}

} // namespace
} // namespace zt::orvex::flow::internal
