#pragma once

#include <cstddef>

namespace zt::orvex::testing {

// Counts what `operator new` and `operator delete` do, and makes allocations fail. A test program
// that includes this header also compiles AllocationCounter.cpp, which replaces these operators
// for the whole program, shared libraries included: give such tests a program of their own.
//
// Counts and limits are per thread.

struct AllocationCounts {
    std::size_t allocations;
    std::size_t releases;
    std::size_t bytes; ///< as requested, released ones included

    /// Blocks not released yet, if the thread released only blocks of its own.
    std::size_t living() const { return allocations - releases; }
};

/// The counts of this thread since its start.
AllocationCounts allocationCounts();

/// What `call` adds to the counts.
template <typename Call>
AllocationCounts costOf(Call call) {
    const AllocationCounts before = allocationCounts();
    call();
    const AllocationCounts after = allocationCounts();
    return {after.allocations - before.allocations, after.releases - before.releases,
            after.bytes - before.bytes};
}

template <typename Call>
std::size_t allocationsOf(Call call) {
    return costOf(call).allocations;
}

/// Which allocations fail once the allowed ones have succeeded.
enum class Failing { TheNext, AllFromThere };

/// While it lives, allocations of this thread fail once `allowed` have succeeded.
/// Limits don't nest.
///
///   const AllocationLimit limit(3);
///   EXPECT_THROW(makeFourObjects(), std::bad_alloc);
class AllocationLimit {
public:
    explicit AllocationLimit(std::size_t allowed, Failing failing = Failing::AllFromThere);
    ~AllocationLimit();
    AllocationLimit(const AllocationLimit&) = delete;
    AllocationLimit& operator=(const AllocationLimit&) = delete;

    /// Whether an allocation has failed.
    bool wasReached() const;
};

/// While it lives, every allocation of this thread by `new (std::nothrow)` yields null. All others
/// succeed.
class NoThrowAllocationFailure {
public:
    NoThrowAllocationFailure();
    ~NoThrowAllocationFailure();
    NoThrowAllocationFailure(const NoThrowAllocationFailure&) = delete;
    NoThrowAllocationFailure& operator=(const NoThrowAllocationFailure&) = delete;
};

} // namespace zt::orvex::testing
