#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <utility>

namespace zt::orvex::benchmarks {

/// Registers a row whose name is computed at run time; `measure` takes the state.
template <typename Measure>
benchmark::internal::Benchmark* registerRow(const std::string& name, Measure measure) {
    return benchmark::RegisterBenchmark(name.c_str(), std::move(measure));
}

} // namespace zt::orvex::benchmarks
