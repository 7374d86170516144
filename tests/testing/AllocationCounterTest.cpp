// A program of its own: it replaces the global allocation functions.

#include "testing/AllocationCounter.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <new>
#include <thread>

namespace zt::orvex::testing {
namespace {

struct alignas(64) Aligned {
    char bytes[128];
};

/// A compiler may leave out a `new` whose result goes nowhere; this one goes through memory.
template <typename T>
T* kept(T* memory) {
    static T* volatile place;
    place = memory;
    return place;
}

void expectOneBlock(std::size_t bytes, const AllocationCounts& cost) {
    EXPECT_EQ(cost.allocations, 1U);
    EXPECT_EQ(cost.releases, 1U);
    EXPECT_EQ(cost.bytes, bytes);
    EXPECT_EQ(cost.living(), 0U);
}

TEST(AllocationCounter, CountsEveryFormOfNewAndDelete) {
    expectOneBlock(1, costOf([] { delete kept(new char); }));
    expectOneBlock(5, costOf([] { delete[] kept(new char[5]); }));
    expectOneBlock(1, costOf([] { delete kept(new (std::nothrow) char); }));
    expectOneBlock(5, costOf([] { delete[] kept(new (std::nothrow) char[5]); }));
    expectOneBlock(128, costOf([] { delete kept(new Aligned); }));
    expectOneBlock(256, costOf([] { delete[] kept(new Aligned[2]); }));
    expectOneBlock(128, costOf([] { delete kept(new (std::nothrow) Aligned); }));
    expectOneBlock(256, costOf([] { delete[] kept(new (std::nothrow) Aligned[2]); }));
}

TEST(AllocationCounter, KeepsAlignment) {
    const Aligned* const memory = kept(new Aligned);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(memory) % alignof(Aligned), 0U);
    delete memory;
}

TEST(AllocationCounter, CountsEachThreadAlone) {
    const std::size_t before = allocationCounts().allocations;
    std::size_t countOfOther = 0;
    std::thread other([&] { countOfOther = allocationsOf([] { delete kept(new int); }); });
    const std::size_t after = allocationCounts().allocations;
    other.join();
    EXPECT_EQ(countOfOther, 1U);
    EXPECT_EQ(allocationCounts().allocations, after);
    EXPECT_GT(after, before) << "starting a thread allocates";
}

TEST(AllocationCounter, LimitFailsTheAllocationAfterTheAllowedOnes) {
    std::size_t made = 0;
    bool hasThrown = false;
    const int* numbers[3] = {};
    {
        const AllocationLimit limit(2);
        try {
            for (const int*& number : numbers) {
                number = kept(new int);
                ++made;
            }
        } catch (const std::bad_alloc&) {
            hasThrown = true;
        }
    }
    EXPECT_EQ(made, 2U);
    EXPECT_TRUE(hasThrown);
    for (const int* const number : numbers)
        delete number;
    delete kept(new int); // the limit is gone
}

TEST(AllocationCounter, NoThrowFailureLeavesOtherAllocationsAlone) {
    const int* silent = nullptr;
    const int* throwing = nullptr;
    {
        const NoThrowAllocationFailure failure;
        silent = kept(new (std::nothrow) int);
        throwing = kept(new int);
    }
    EXPECT_EQ(silent, nullptr);
    EXPECT_NE(throwing, nullptr);
    delete throwing;
    const int* const again = kept(new (std::nothrow) int);
    EXPECT_NE(again, nullptr);
    delete again;
}

} // namespace
} // namespace zt::orvex::testing
