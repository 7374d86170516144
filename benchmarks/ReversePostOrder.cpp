// Reverse post-order of a graph with about two edges per node, including the construction of the
// graph: our Digraph against Boost's adjacency list and a traversal of compressed sparse rows.
//
// "local": edges to the next node and to one at most 16 away, as in a flow graph. "random": both
// ends anywhere.

#include "support/PerItem.h"
#include "support/Random.h"
#include "support/Register.h"

#include <zt_orvex/flow/Digraph.h>
#include <zt_orvex/flow/internal/IndexGraph.h>

#include <boost/graph/adjacency_list.hpp>
#include <boost/graph/depth_first_search.hpp>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace zt::orvex::benchmarks {
namespace {

using Edge = std::pair<std::uint32_t, std::uint32_t>;

struct Input {
    std::uint32_t nodes;
    std::vector<Edge> edges; ///< sorted, each once
};

Input makeInput(std::uint32_t nodes, bool isLocal) {
    Input input{nodes, {}};
    Random random(6);
    for (std::uint32_t i = 0; i < nodes; ++i) {
        if (isLocal) {
            if (i + 1 < nodes) input.edges.emplace_back(i, i + 1);
            const std::int64_t near = std::int64_t{i} + random.below(33) - 16;
            const std::int64_t kept = std::clamp<std::int64_t>(near, 0, nodes - 1);
            input.edges.emplace_back(i, static_cast<std::uint32_t>(kept));
        } else {
            input.edges.emplace_back(i, random.below(nodes));
            input.edges.emplace_back(i, random.below(nodes));
        }
    }
    std::sort(input.edges.begin(), input.edges.end());
    input.edges.erase(std::unique(input.edges.begin(), input.edges.end()), input.edges.end());
    return input;
}

/// Objects of the size of an equation to point to; only their addresses matter.
struct Thing {
    char bytes[64];
};

/// As the solver orders its equations: by numbers that it keeps.
std::size_t orderOurs(const Input& input, Thing* things) {
    flow::internal::IndexGraph graph;
    graph.reserve(input.nodes);
    for (std::uint32_t i = 0; i < input.nodes; ++i)
        graph.addNode();
    for (const Edge& edge : input.edges)
        graph.addEdge(edge.first, edge.second);
    auto order = std::make_shared<std::vector<Thing*>>(input.nodes);
    auto cursor = order->end();
    graph.traverseDepthFirst([](std::uint64_t) {},
                             [&](std::uint64_t node) { *--cursor = things + node; });
    benchmark::DoNotOptimize(order->data());
    return order->size();
}

/// The same, with a hash look-up for both ends of each edge.
std::size_t orderOursByNodes(const Input& input, Thing* things) {
    flow::Digraph<Thing*> graph;
    for (std::uint32_t i = 0; i < input.nodes; ++i)
        graph.addNode(things + i);
    for (const Edge& edge : input.edges)
        graph.addEdge(things + edge.first, things + edge.second);
    return graph.inReversePostOrder()->size();
}

std::size_t orderIdeally(const Input& input, Thing*) {
    const std::uint32_t n = input.nodes;
    std::vector<std::uint32_t> start(n + 1, 0);
    std::vector<std::uint32_t> targets(input.edges.size());
    for (const Edge& edge : input.edges)
        ++start[edge.first + 1];
    for (std::uint32_t i = 0; i < n; ++i)
        start[i + 1] += start[i];
    std::vector<std::uint32_t> next(start.begin(), start.end() - 1);
    for (const Edge& edge : input.edges)
        targets[next[edge.first]++] = edge.second;

    std::vector<std::uint32_t> order(n);
    std::vector<std::uint32_t> stack;
    std::vector<std::uint8_t> isSeen(n, 0);
    std::copy(start.begin(), start.end() - 1, next.begin());
    std::uint32_t place = n;
    for (std::uint32_t root = 0; root < n; ++root) {
        if (isSeen[root]) continue;
        isSeen[root] = 1;
        stack.push_back(root);
        while (!stack.empty()) {
            const std::uint32_t top = stack.back();
            if (next[top] < start[top + 1]) {
                const std::uint32_t successor = targets[next[top]++];
                if (isSeen[successor]) continue;
                isSeen[successor] = 1;
                stack.push_back(successor);
            } else {
                stack.pop_back();
                order[--place] = top;
            }
        }
    }
    benchmark::DoNotOptimize(order.data());
    return order.size() - place;
}

std::size_t orderByBoost(const Input& input, Thing*) {
    using Graph = boost::adjacency_list<boost::vecS, boost::vecS, boost::directedS>;
    class Fill : public boost::default_dfs_visitor {
    public:
        explicit Fill(std::uint32_t*& end) : place(&end) {}
        void finish_vertex(Graph::vertex_descriptor vertex, const Graph&) const {
            *--*place = static_cast<std::uint32_t>(vertex);
        }

    private:
        std::uint32_t** place;
    };
    const Graph graph(input.edges.begin(), input.edges.end(), input.nodes);
    std::vector<std::uint32_t> order(input.nodes);
    std::uint32_t* place = order.data() + order.size();
    boost::depth_first_search(graph, boost::visitor(Fill(place)));
    benchmark::DoNotOptimize(order.data());
    return static_cast<std::size_t>(order.data() + order.size() - place);
}

using Order = std::size_t (*)(const Input&, Thing*);

void registerOrder(const std::string& name, const std::shared_ptr<const Input>& input,
                   Order order) {
    registerRow(name, [=](benchmark::State& state) {
        const std::unique_ptr<Thing[]> things(new Thing[input->nodes]);
        std::size_t count = 0;
        for (auto _ : state)
            count = order(*input, things.get());
        if (count != input->nodes) state.SkipWithError("wrong answer");
        reportPerItem(state, input->nodes);
    });
}

[[maybe_unused]] const bool registered = [] {
    for (const std::uint32_t nodes : {1000u, 10000u, 100000u, 1000000u}) {
        for (const bool isLocal : {true, false}) {
            const auto input = std::make_shared<const Input>(makeInput(nodes, isLocal));
            const std::string end =
                std::string(isLocal ? "/local" : "/random") + "/n:" + std::to_string(nodes);
            registerOrder("rpo/ours" + end, input, orderOurs);
            registerOrder("rpo/ours_by_nodes" + end, input, orderOursByNodes);
            registerOrder("rpo/ideal_csr" + end, input, orderIdeally);
            registerOrder("rpo/boost_adjacency_list" + end, input, orderByBoost);
        }
    }
    for (const std::uint32_t nodes : {10000u, 400000u}) {
        const auto input = std::make_shared<const Input>(Input{nodes, {}});
        registerOrder("rpo/ours/no_edges/n:" + std::to_string(nodes), input, orderOurs);
    }
    return true;
}();

} // namespace
} // namespace zt::orvex::benchmarks
