// Looking up elements by handle, in a random order that doesn't depend on the results, so that
// look-ups overlap. Abseil's rows are in peers/AbseilRows.cpp.

#include "support/LookUpRows.h"
#include "support/Register.h"

#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex/flow/OrderedSet.h>

#include <string>
#include <unordered_map>

namespace zt::orvex::benchmarks {
namespace {

void lookUpOurs(benchmark::State& state, std::size_t count) {
    flow::OrderedSet<SymbolView> set;
    set.reserve(count);
    for (std::uint64_t i = 0; i < count; ++i)
        set.add({handleAt(i), nullptr});
    measureLookUps(state, count, [&](std::uint64_t handle) {
        return set.indexOf({handle, nullptr});
    });
}

/// Chained buckets, with the same hash.
void lookUpChained(benchmark::State& state, std::size_t count) {
    std::unordered_map<SymbolView, std::uint64_t> map;
    map.reserve(count);
    for (std::uint64_t i = 0; i < count; ++i)
        map.emplace(SymbolView{handleAt(i), nullptr}, i);
    measureLookUps(state, count, [&](std::uint64_t handle) {
        return map.find(SymbolView{handle, nullptr})->second;
    });
}

[[maybe_unused]] const bool registered = [] {
    for (const std::size_t count : LOOK_UP_SIZES) {
        const std::string end = "/n:" + std::to_string(count);
        registerRow("ordered_set/ours" + end,
                    [=](benchmark::State& state) { lookUpOurs(state, count); });
        registerRow("ordered_set/std_unordered_map" + end,
                    [=](benchmark::State& state) { lookUpChained(state, count); });
    }
    return true;
}();

} // namespace
} // namespace zt::orvex::benchmarks
