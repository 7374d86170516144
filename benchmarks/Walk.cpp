// Walking a tree with a function object that counts: forEachNodeIn against a recursion over arrays,
// which needs no interface. Clang's rows are in peers/ClangWalkRows.cpp.

#include "support/GeneratedSource.h"
#include "support/PerItem.h"

#include <zt_orvex/ast/ForEachNodeIn.h>

#include <benchmark/benchmark.h>

#include <functional>

namespace zt::orvex::benchmarks {
namespace {

/// The same tree without virtual functions: a kind and a run of children per node.
struct PlainTree {
    struct Node {
        std::uint32_t kind, first, count;
    };
    std::vector<Node> nodes;
    std::vector<std::uint32_t> children;

    std::uint32_t copy(const ArrayTree& from, ArrayTree::Node node) {
        const auto id = static_cast<std::uint32_t>(nodes.size());
        nodes.push_back({static_cast<std::uint32_t>(from.getNodeKind(node)), 0, 0});
        std::vector<std::uint32_t> copies;
        from.forEachChild(node,
                          [&](ArrayTree::Node child) { copies.push_back(copy(from, child)); });
        nodes[id].first = static_cast<std::uint32_t>(children.size());
        nodes[id].count = static_cast<std::uint32_t>(copies.size());
        children.insert(children.end(), copies.begin(), copies.end());
        return id;
    }

    void walk(std::uint32_t node, const std::function<void(std::uint32_t)>& callback) const {
        callback(node);
        const Node& n = nodes[node];
        for (std::uint32_t i = 0; i < n.count; ++i)
            walk(children[n.first + i], callback);
    }
};

void walkOurs(benchmark::State& state) {
    const GeneratedSource& source = generatedSource();
    std::uint64_t count = 0;
    const std::function<void(NodeView)> callback = [&count](NodeView) { ++count; };
    for (auto _ : state) {
        count = 0;
        forEachNodeIn(source.tree.view(source.root), callback);
    }
    if (count != source.tree.size()) state.SkipWithError("not every node was visited");
    reportPerItem(state, static_cast<double>(count));
}
BENCHMARK(walkOurs)->Name("walk/ours")->MinTime(WALK_SECONDS);

void walkIdeally(benchmark::State& state) {
    const GeneratedSource& source = generatedSource();
    static const PlainTree tree = [&] {
        PlainTree made;
        made.copy(source.tree, source.root);
        return made;
    }();
    std::uint64_t count = 0;
    const std::function<void(std::uint32_t)> callback = [&count](std::uint32_t) { ++count; };
    for (auto _ : state) {
        count = 0;
        tree.walk(0, callback);
    }
    if (count != source.tree.size()) state.SkipWithError("not every node was visited");
    reportPerItem(state, static_cast<double>(count));
}
BENCHMARK(walkIdeally)->Name("walk/ideal_array")->MinTime(WALK_SECONDS);

} // namespace
} // namespace zt::orvex::benchmarks
