#pragma once

#include <cstdint>

namespace zt::orvex::benchmarks {

/// What the heap has given out since the counter was constructed. A program that uses it compiles
/// HeapCounter.cpp, which replaces malloc and its relatives: LLVM's containers call malloc
/// directly, so that a count of `operator new` would miss them.
class HeapCounter {
public:
    HeapCounter();

    /// The most bytes in use at any time, the allocator's own headers included, minus those in use
    /// at the start.
    std::int64_t peakBytes() const;
    std::int64_t allocations() const;

private:
    std::int64_t bytesAtStart;
    std::int64_t allocationsAtStart;
};

} // namespace zt::orvex::benchmarks
