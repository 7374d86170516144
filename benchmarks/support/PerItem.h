#pragma once

#include <benchmark/benchmark.h>

namespace zt::orvex::benchmarks {

/// Reports nanoseconds for each of the `items` that one iteration handles: what the table of goals
/// is made from.
inline void reportPerItem(benchmark::State& state, double items) {
    state.counters["ns_per_item"] = benchmark::Counter(
        items * 1e-9, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

} // namespace zt::orvex::benchmarks
