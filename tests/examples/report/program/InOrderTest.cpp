#include "report/program/InOrder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <numeric>
#include <set>
#include <stdexcept>
#include <thread>
#include <vector>

namespace ostrel::report::testing {

namespace {

/// The results of squaring, in the order in which they are consumed.
std::vector<std::size_t> squares(std::size_t count, std::size_t jobs) {
    std::vector<std::size_t> consumed;
    inOrder(
        count, jobs, [](std::size_t i) { return i * i; },
        [&](std::size_t square) {
            consumed.push_back(square);
            return true;
        });
    return consumed;
}

} // namespace

TEST(InOrder, ConsumesEachResultInOrder) {
    for (const std::size_t count : {0U, 1U, 2U, 1000U}) {
        std::vector<std::size_t> expected;
        for (std::size_t i = 0; i < count; ++i)
            expected.push_back(i * i);
        for (const std::size_t jobs : {1U, 2U, 8U})
            EXPECT_EQ(squares(count, jobs), expected) << count << " with " << jobs << " jobs";
    }
}

TEST(InOrder, TwoJobsProduceAtTheSameTime) {
    if (countPossibleThreads(1) == 0) GTEST_SKIP() << "no threads";
    std::atomic<int> waiting = 0;
    const auto meet = [&](std::size_t) { // ends only if two calls overlap
        ++waiting;
        while (waiting < 2)
            std::this_thread::yield();
        return 0;
    };
    inOrder(2, 2, meet, [](int) { return true; });
    EXPECT_EQ(waiting, 2);
}

TEST(InOrder, OneJobStaysInTheCallingThread) {
    std::set<std::thread::id> threads;
    inOrder(
        100, 1,
        [&](std::size_t) {
            threads.insert(std::this_thread::get_id());
            return 0;
        },
        [&](int) {
            threads.insert(std::this_thread::get_id());
            return true;
        });
    EXPECT_EQ(threads, std::set<std::thread::id>{std::this_thread::get_id()});
}

TEST(InOrder, ResultsThatWaitForASlowOneAreFew) {
    std::atomic<std::size_t> produced = 0;
    std::size_t ahead = 0;
    std::size_t consumed = 0;
    inOrder(
        1000, 4,
        [&](std::size_t i) {
            if (i == 0) std::this_thread::sleep_for(std::chrono::milliseconds(20));
            ++produced;
            return i;
        },
        [&](std::size_t) {
            ahead = std::max(ahead, produced - consumed);
            ++consumed;
            return true;
        });
    EXPECT_EQ(consumed, 1000U);
    EXPECT_LE(ahead, 16U);
}

TEST(InOrder, EndsWhenTheConsumerWantsNoMore) {
    for (const std::size_t jobs : {1U, 4U}) {
        std::vector<std::size_t> consumed;
        std::atomic<std::size_t> produced = 0;
        inOrder(
            10'000, jobs,
            [&](std::size_t i) {
                ++produced;
                return i;
            },
            [&](std::size_t i) {
                consumed.push_back(i);
                return i < 2;
            });
        EXPECT_THAT(consumed, ::testing::ElementsAre(0, 1, 2));
        EXPECT_LE(produced, 3 + 4 * jobs);
    }
}

TEST(InOrder, ExceptionOfEitherSideReachesTheCaller) {
    const auto failAt5 = [](std::size_t i) {
        if (i == 5) throw std::runtime_error("five");
        return i;
    };
    const auto number = [](std::size_t i) { return i; };
    for (const std::size_t jobs : {1U, 4U}) {
        std::size_t consumed = 0;
        const auto count = [&](std::size_t) { return ++consumed > 0; };
        EXPECT_THROW(inOrder(100, jobs, failAt5, count), std::runtime_error);
        EXPECT_LE(consumed, 5U);
        const auto fail = [&](std::size_t i) { return failAt5(i) < 100; };
        EXPECT_THROW(inOrder(100, jobs, number, fail), std::runtime_error);
    }
}

TEST(Threads, HaveAtLeastTheStackThatTheLimitsOnNestingNeed) {
    EXPECT_GE(threadStackSize(), std::size_t{8} << 20);
    EXPECT_GE(processorCount(), 1U);
}

} // namespace ostrel::report::testing
