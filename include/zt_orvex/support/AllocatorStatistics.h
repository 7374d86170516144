#pragma once

#include <zt_orvex/support/Export.h>

#include <cstddef>
#include <cstdint>

namespace zt::orvex {

/// Four counters for your allocator to fill in: what it was asked for, and what it asked the system
/// for.
///
/// The library itself records nothing. The two pairs are independent of each other, and counters
/// wrap at 64 bits silently. Not synchronised: a record belongs to one thread at a time, or to an
/// allocator that guards it.
///
///     AllocatorStatistics statistics;
///     statistics.recordAllocationRequest(24);
///     statistics.recordSystemMemoryAllocation(4096);
///     const AllocatorStatistics total = statistics + others;
class ZT_ORVEX_EXPORT AllocatorStatistics {
public:
    /// All counters zero.
    AllocatorStatistics();
    /// @{
    /// Copies the counters. So does moving: `other` keeps its values.
    AllocatorStatistics(const AllocatorStatistics& other);
    AllocatorStatistics& operator=(const AllocatorStatistics& other);
    AllocatorStatistics& operator=(AllocatorStatistics&& other) noexcept;
    /// @}

    /// @{
    /// Compares all four counters.
    bool operator==(const AllocatorStatistics& other) const;
    bool operator!=(const AllocatorStatistics& other) const;
    /// @}

    /// The sum, counter by counter.
    AllocatorStatistics operator+(const AllocatorStatistics& other) const;

    /// Counts one request to the allocator, even one for no bytes.
    void recordAllocationRequest(std::size_t bytes);
    /// Counts one block that the allocator got from the system.
    void recordSystemMemoryAllocation(std::size_t bytes);

    /// How often `recordAllocationRequest` was called.
    std::uint64_t getNumberOfCallsToAllocate() const;
    /// The bytes that it was called with, in all.
    std::uint64_t getTotalBytesRequested() const;
    /// How often `recordSystemMemoryAllocation` was called.
    std::uint64_t getNumberOfSystemMemoryAllocations() const;
    /// The bytes that it was called with, in all.
    std::uint64_t getTotalBytesAllocatedFromSystem() const;

private:
    std::uint64_t numberOfCallsToAllocate = 0;
    std::uint64_t totalBytesRequested = 0;
    std::uint64_t numberOfSystemMemoryAllocations = 0;
    std::uint64_t totalBytesAllocatedFromSystem = 0;
};

static_assert(sizeof(AllocatorStatistics) == 4 * sizeof(std::uint64_t));

} // namespace zt::orvex
