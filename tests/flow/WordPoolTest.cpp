#include <zt_orvex/flow/WordPool.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace zt::orvex::flow::internal {
namespace {

constexpr std::size_t LINE_BYTES = 64;

bool startsAtLine(const std::uint64_t* words) {
    return reinterpret_cast<std::uintptr_t>(words) % LINE_BYTES == 0;
}

TEST(WordPool, ArraysOfAllLengthsKeepWhatIsWritten) {
    WordPool pool;
    std::vector<std::pair<std::uint64_t*, std::size_t>> arrays;
    for (std::uint64_t number = 0; number < 500; ++number) {
        const std::size_t count = (number * 37) % 131;
        arrays.emplace_back(pool.allocate(count), count);
        for (std::size_t i = 0; i < count; ++i)
            arrays.back().first[i] = number;
    }
    for (std::uint64_t number = 0; number < 500; ++number) {
        const auto [words, count] = arrays[number];
        for (std::size_t i = 0; i < count; ++i)
            ASSERT_EQ(words[i], number) << "word " << i << " of " << count;
    }
}

TEST(WordPool, ArrayOfTwoLinesOrMoreStartsAtALine) {
    WordPool pool;
    for (std::size_t count = 16; count < 600; count += 7) {
        pool.allocate(count % 5);
        EXPECT_TRUE(startsAtLine(pool.allocate(count))) << count << " words";
    }
}

TEST(WordPool, ShortArraysLieSideBySide) {
    WordPool pool;
    const std::uint64_t* const first = pool.allocate(3);
    EXPECT_EQ(pool.allocate(15), first + 3);
    EXPECT_EQ(pool.allocate(1), first + 18);
}

TEST(WordPool, ArrayMayBeLargerThanAnyBlock) {
    WordPool pool;
    const std::size_t count = 100000;
    std::uint64_t* const words = pool.allocate(count);
    ASSERT_TRUE(startsAtLine(words));
    words[0] = 1;
    words[count - 1] = 2;
    EXPECT_NE(pool.allocate(1), nullptr);
}

TEST(WordPool, ArrayOfElementsIsZero) {
    WordPool pool;
    const int* const* const pointers = pool.allocateArray<const int*>(40);
    for (std::size_t i = 0; i < 40; ++i)
        EXPECT_EQ(pointers[i], nullptr);
}

} // namespace
} // namespace zt::orvex::flow::internal
