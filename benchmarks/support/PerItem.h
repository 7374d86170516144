#pragma once

#include <benchmark/benchmark.h>

namespace zt::orvex::benchmarks {

/// Reports nanoseconds per item, where one iteration handles `items`. The table of goals uses these
/// figures.
inline void reportPerItem(benchmark::State& state, double items) {
    state.counters["ns_per_item"] = benchmark::Counter(
        items * 1e-9, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

} // namespace zt::orvex::benchmarks
