#include <zt_orvex/support/AllocatorStatistics.h>

namespace zt::orvex {

AllocatorStatistics::AllocatorStatistics() = default;
AllocatorStatistics::AllocatorStatistics(const AllocatorStatistics&) = default;
AllocatorStatistics& AllocatorStatistics::operator=(const AllocatorStatistics&) = default;
AllocatorStatistics& AllocatorStatistics::operator=(AllocatorStatistics&&) noexcept = default;

bool AllocatorStatistics::operator==(const AllocatorStatistics& other) const {
    return numberOfCallsToAllocate == other.numberOfCallsToAllocate &&
           totalBytesRequested == other.totalBytesRequested &&
           numberOfSystemMemoryAllocations == other.numberOfSystemMemoryAllocations &&
           totalBytesAllocatedFromSystem == other.totalBytesAllocatedFromSystem;
}

bool AllocatorStatistics::operator!=(const AllocatorStatistics& other) const {
    return !(*this == other);
}

AllocatorStatistics AllocatorStatistics::operator+(const AllocatorStatistics& other) const {
    AllocatorStatistics sum(*this);
    sum.numberOfCallsToAllocate += other.numberOfCallsToAllocate;
    sum.totalBytesRequested += other.totalBytesRequested;
    sum.numberOfSystemMemoryAllocations += other.numberOfSystemMemoryAllocations;
    sum.totalBytesAllocatedFromSystem += other.totalBytesAllocatedFromSystem;
    return sum;
}

void AllocatorStatistics::recordAllocationRequest(std::size_t bytes) {
    ++numberOfCallsToAllocate;
    totalBytesRequested += bytes;
}

void AllocatorStatistics::recordSystemMemoryAllocation(std::size_t bytes) {
    ++numberOfSystemMemoryAllocations;
    totalBytesAllocatedFromSystem += bytes;
}

std::uint64_t AllocatorStatistics::getNumberOfCallsToAllocate() const {
    return numberOfCallsToAllocate;
}

std::uint64_t AllocatorStatistics::getTotalBytesRequested() const { return totalBytesRequested; }

std::uint64_t AllocatorStatistics::getNumberOfSystemMemoryAllocations() const {
    return numberOfSystemMemoryAllocations;
}

std::uint64_t AllocatorStatistics::getTotalBytesAllocatedFromSystem() const {
    return totalBytesAllocatedFromSystem;
}

} // namespace zt::orvex
