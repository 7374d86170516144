#pragma once

#include <cstddef>

namespace ostrel::testing {

/// What a computation costs, counted rather than timed, so that a busy machine doesn't matter.
struct Cost {
    /// Basic blocks that ran in the front end, the report, the library and the kit, and one for each
    /// 16 bytes that they allocate or have the C library copy, fill, compare or search.
    std::size_t steps = 0;

    /// The most memory from `operator new` in use at one time, in bytes, beyond what was in use
    /// before.
    std::size_t peak = 0;
};

/// The state of the counters. A program has one set of them, for all of its threads; they aren't
/// synchronized, so measure on one thread.
///
/// The code to measure must be compiled with `-fsanitize-coverage=trace-pc`, which calls a counter
/// in each basic block. Code of the standard library that isn't a template has no such calls; of
/// that, only the bytes count.
class CostMeter {
public:
    CostMeter();

    /// The cost since the meter was made.
    Cost read() const;

private:
    std::size_t stepsBefore;
    std::size_t bytesBefore;
    std::size_t inUseBefore;
};

template <typename Call>
Cost costOf(Call call) {
    const CostMeter meter;
    call();
    return meter.read();
}

} // namespace ostrel::testing
