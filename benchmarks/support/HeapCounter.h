#pragma once

#include <cstdint>

namespace zt::orvex::benchmarks {

/// What the heap has given out since its construction. A program that uses it links
/// HeapCounter.cpp, which puts itself in the place of malloc and its like.
class HeapCounter {
public:
    HeapCounter();

    /// The most bytes that were in use at a time, the allocator's own headers included, less those
    /// at the start.
    std::int64_t peakBytes() const;
    std::int64_t allocations() const;

private:
    std::int64_t bytesAtStart;
    std::int64_t allocationsAtStart;
};

} // namespace zt::orvex::benchmarks
