#include <zt_orvex/support/AllocatorStatistics.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <utility>

namespace zt::orvex {
namespace {

void expectCounters(const AllocatorStatistics& statistics, std::uint64_t calls,
                    std::uint64_t requested, std::uint64_t systemCalls, std::uint64_t allocated) {
    EXPECT_EQ(statistics.getNumberOfCallsToAllocate(), calls);
    EXPECT_EQ(statistics.getTotalBytesRequested(), requested);
    EXPECT_EQ(statistics.getNumberOfSystemMemoryAllocations(), systemCalls);
    EXPECT_EQ(statistics.getTotalBytesAllocatedFromSystem(), allocated);
}

AllocatorStatistics makeStatistics(std::size_t requested, std::size_t allocated) {
    AllocatorStatistics statistics;
    statistics.recordAllocationRequest(requested);
    statistics.recordSystemMemoryAllocation(allocated);
    return statistics;
}

TEST(AllocatorStatistics, StartsAtZeroAndEqualsAnother) {
    expectCounters(AllocatorStatistics(), 0, 0, 0, 0);
    EXPECT_TRUE(AllocatorStatistics() == AllocatorStatistics());
    EXPECT_FALSE(AllocatorStatistics() != AllocatorStatistics());
}

TEST(AllocatorStatistics, PairsCountIndependently) {
    AllocatorStatistics statistics;
    statistics.recordAllocationRequest(24);
    statistics.recordAllocationRequest(8);
    expectCounters(statistics, 2, 32, 0, 0);
    statistics.recordSystemMemoryAllocation(4096);
    expectCounters(statistics, 2, 32, 1, 4096);
}

TEST(AllocatorStatistics, RequestOfNoBytesCounts) {
    AllocatorStatistics statistics;
    statistics.recordAllocationRequest(0);
    expectCounters(statistics, 1, 0, 0, 0);
    EXPECT_TRUE(statistics != AllocatorStatistics());
}

TEST(AllocatorStatistics, EachCounterDistinguishesTwoRecords) {
    const AllocatorStatistics zero;
    AllocatorStatistics request;
    request.recordAllocationRequest(0);
    AllocatorStatistics bytes;
    bytes.recordAllocationRequest(5);
    AllocatorStatistics system;
    system.recordSystemMemoryAllocation(0);
    AllocatorStatistics systemBytes;
    systemBytes.recordSystemMemoryAllocation(5);
    EXPECT_TRUE(zero != request);
    EXPECT_TRUE(request != bytes);
    EXPECT_TRUE(zero != system);
    EXPECT_TRUE(system != systemBytes);
    EXPECT_FALSE(system == systemBytes);
    EXPECT_TRUE(bytes != systemBytes);
}

TEST(AllocatorStatistics, SumLeavesTheOperandsAlone) {
    const AllocatorStatistics a = makeStatistics(1, 10);
    const AllocatorStatistics b = makeStatistics(2, 20);
    expectCounters(a + b, 2, 3, 2, 30);
    expectCounters(a, 1, 1, 1, 10);
    expectCounters(b, 1, 2, 1, 20);
    EXPECT_TRUE(a + AllocatorStatistics() == a);
    EXPECT_TRUE(a + b == b + a);
}

TEST(AllocatorStatistics, AssignmentCopiesAndLeavesTheSource) {
    AllocatorStatistics source = makeStatistics(1, 10);
    AllocatorStatistics copy;
    EXPECT_EQ(&(copy = source), &copy);
    expectCounters(copy, 1, 1, 1, 10);
    AllocatorStatistics moved;
    EXPECT_EQ(&(moved = std::move(source)), &moved);
    expectCounters(moved, 1, 1, 1, 10);
    expectCounters(source, 1, 1, 1, 10);
}

TEST(AllocatorStatistics, CountersWrapWithoutNotice) {
    constexpr std::size_t LARGEST = std::numeric_limits<std::size_t>::max();
    AllocatorStatistics statistics = makeStatistics(LARGEST, LARGEST);
    statistics.recordAllocationRequest(2);
    expectCounters(statistics, 2, 1, 1, LARGEST);
    expectCounters(statistics + makeStatistics(0, 3), 3, 1, 2, 2);
}

} // namespace
} // namespace zt::orvex
