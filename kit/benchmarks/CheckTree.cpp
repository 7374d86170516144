// What the check of a correct tree costs, beside the walk of the library: a million nodes, 2,650
// functions.

#include "NamedTree.h"
#include "support/PerItem.h"

#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex_kit/tree/CheckTree.h>
#include <zt_orvex_kit/tree/Traversal.h>

#include <benchmark/benchmark.h>

#include <cstdint>
#include <functional>

namespace zt::orvex::benchmarks {
namespace {

const NamedTree& tree() {
    static const GeneratedSource source(2650);
    static const NamedTree named(source);
    return named;
}

void checkTree(benchmark::State& state) {
    for (auto _ : state) {
        if (!kit::checkTree(tree().rootView()).empty()) state.SkipWithError("the tree is wrong");
    }
    reportPerItem(state, static_cast<double>(tree().size()));
}
BENCHMARK(checkTree)->Name("check_tree/ours")->MinTime(WALK_SECONDS);

void walk(benchmark::State& state) {
    std::uint64_t count = 0;
    const std::function<void(NodeView)> callback = [&count](NodeView) { ++count; };
    for (auto _ : state) {
        count = 0;
        forEachNodeIn(tree().rootView(), callback);
    }
    if (count != tree().size()) state.SkipWithError("not every node was visited");
    reportPerItem(state, static_cast<double>(count));
}
BENCHMARK(walk)->Name("check_tree/for_each_node_in")->MinTime(WALK_SECONDS);

void traversal(benchmark::State& state) {
    std::uint64_t count = 0;
    for (auto _ : state) {
        count = 0;
        kit::traverse(tree().rootView(), {[&count](const kit::Visit&) {
                                              ++count;
                                              return kit::Next::Descend;
                                          },
                                          {}});
    }
    if (count != tree().size()) state.SkipWithError("not every node was visited");
    reportPerItem(state, static_cast<double>(count));
}
BENCHMARK(traversal)->Name("traverse/ours")->MinTime(WALK_SECONDS);

} // namespace
} // namespace zt::orvex::benchmarks
