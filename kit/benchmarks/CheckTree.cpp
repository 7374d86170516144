// What the check of a correct tree costs, beside the walk of the library: a million nodes, 2,650
// functions.

#include "support/GeneratedSource.h"
#include "support/PerItem.h"

#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex_kit/tree/CheckTree.h>
#include <zt_orvex_kit/tree/Traversal.h>

#include <benchmark/benchmark.h>

#include <cstdint>
#include <functional>

namespace zt::orvex::benchmarks {
namespace {

const GeneratedSource& source() {
    static const GeneratedSource generated(2650);
    return generated;
}

NodeView root() { return source().tree.view(source().root); }

void checkTree(benchmark::State& state) {
    for (auto _ : state) {
        if (!kit::checkTree(root()).empty()) state.SkipWithError("the tree is wrong");
    }
    reportPerItem(state, static_cast<double>(source().tree.size()));
}
BENCHMARK(checkTree)->Name("check_tree/ours")->MinTime(WALK_SECONDS);

void walk(benchmark::State& state) {
    std::uint64_t count = 0;
    const std::function<void(NodeView)> callback = [&count](NodeView) { ++count; };
    for (auto _ : state) {
        count = 0;
        forEachNodeIn(root(), callback);
    }
    if (count != source().tree.size()) state.SkipWithError("not every node was visited");
    reportPerItem(state, static_cast<double>(count));
}
BENCHMARK(walk)->Name("check_tree/for_each_node_in")->MinTime(WALK_SECONDS);

void traversal(benchmark::State& state) {
    std::uint64_t count = 0;
    for (auto _ : state) {
        count = 0;
        kit::traverse(root(), {[&count](const kit::Visit&) {
                                   ++count;
                                   return kit::Next::Descend;
                               },
                               {}});
    }
    if (count != source().tree.size()) state.SkipWithError("not every node was visited");
    reportPerItem(state, static_cast<double>(count));
}
BENCHMARK(traversal)->Name("traverse/ours")->MinTime(WALK_SECONDS);

} // namespace
} // namespace zt::orvex::benchmarks
