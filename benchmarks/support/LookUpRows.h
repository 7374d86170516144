#pragma once

#include "support/PerItem.h"
#include "support/Random.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace zt::orvex::benchmarks {

constexpr std::size_t LOOK_UP_SIZES[] = {100, 10000, 1000000};

/// Handles like those of nodes of 64 bytes in a pool.
inline std::uint64_t handleAt(std::uint64_t index) { return 0x55d000001000ull + index * 64; }

/// `find` returns the index of a handle; all handles are in the set.
template <typename Find>
void measureLookUps(benchmark::State& state, std::size_t count, Find find) {
    std::vector<std::uint64_t> handles(std::min<std::size_t>(count * 4, 1u << 17));
    std::uint64_t expected = 0;
    Random random(17);
    for (std::uint64_t& handle : handles) {
        const std::uint64_t index = random.below(static_cast<std::uint32_t>(count));
        handle = handleAt(index);
        expected += index;
    }
    std::uint64_t sum = 0;
    for (auto _ : state) {
        sum = 0;
        for (const std::uint64_t handle : handles)
            sum += find(handle);
        benchmark::DoNotOptimize(sum);
    }
    if (sum != expected) state.SkipWithError("wrong answer");
    reportPerItem(state, static_cast<double>(handles.size()));
}

} // namespace zt::orvex::benchmarks
