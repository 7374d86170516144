// Abseil's hash map with FNV-1a in the rows of OrderedSet.cpp.

#include "support/LookUpRows.h"
#include "support/Register.h"

#include <zt_orvex/support/Fnv1a.h>

#include <absl/container/flat_hash_map.h>

#include <string>

namespace zt::orvex::benchmarks {
namespace {

struct Fnv {
    std::size_t operator()(std::uint64_t handle) const {
        return zt::orvex::internal::fnv1a(handle);
    }
};

void lookUp(benchmark::State& state, std::size_t count) {
    absl::flat_hash_map<std::uint64_t, std::uint64_t, Fnv> map;
    map.reserve(count);
    for (std::uint64_t i = 0; i < count; ++i)
        map.emplace(handleAt(i), i);
    measureLookUps(state, count, [&](std::uint64_t handle) { return map.find(handle)->second; });
}

[[maybe_unused]] const bool registered = [] {
    for (const std::size_t count : LOOK_UP_SIZES) {
        registerRow("ordered_set/absl_flat_hash_map/n:" + std::to_string(count),
                    [=](benchmark::State& state) { lookUp(state, count); });
    }
    return true;
}();

} // namespace
} // namespace zt::orvex::benchmarks
